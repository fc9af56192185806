#include "ZrvProperty.h"

#include "CountedObject.h"
#include "ReportingTest.h"
#include "ZrvPrototypeImpl.h"

namespace {

using ZrvPropertyTest = ReportingTest;

TEST_F(ZrvPropertyTest, IsMadeCopiedAndSetByItself)
{
    ZrvPrototypeImpl nested;
    ZrvProperty* made = nullptr;
    ZrvProperties* parameters = nullptr;
    EXPECT_EQ(Answer(ZrvProperty::CreateProperty("colour", made, &nested)), "error");
    EXPECT_EQ(Answer(ZrvProperty::CreateProperty("KELSysTSBaseUnknownPtr", made, &nested)), "ok");
    made->SetParameters(std::make_unique<ZrvProperties>(&nested));
    EXPECT_EQ(Answer(made->SetValue(ZrvPropertyValue<KELSysTSBaseUnknown*>(&nested))), "ok");
    const std::unique_ptr<ZrvProperty> property(made), copy(property->Duplicate());
    EXPECT_TRUE(copy->GetObject() == &nested && copy->PeekPrototype() == &nested);
    EXPECT_EQ(Answer(copy->GetParameters(&parameters)), "ok");
    EXPECT_EQ(CountOf(nested), 8U) << "the test's, objects, prototypes and parameters of both, and those taken";
    EXPECT_EQ(Answer(copy->GetParameters(&parameters)), "error [condition !(*opProperties) in ZrvProperty]");
    delete parameters;
    EXPECT_EQ(Answer(copy->GetParameters(nullptr)), "error [pointer opProperties in ZrvProperty]");
    EXPECT_EQ(Answer(ZrvProperty::CreateProperty("i", made, nullptr)), "error [condition !oProperty in ZrvProperty]");
    ZrvProperty empty(nullptr);
    EXPECT_TRUE(!empty.Duplicate() && empty.GetType() == "" && empty.SetValue(ZrvPropertyValue<float>(1)).IsValid());
    EXPECT_TRUE(reports.Take() != "" && empty.SetValue(ZrvPropertyValue<double>(1)).IsError() && reports.Take() != "");
    EXPECT_EQ(std::unique_ptr<ZrvProperty>(empty.Duplicate())->GetType(), "float");
}

} // namespace
