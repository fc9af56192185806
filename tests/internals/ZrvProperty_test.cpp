#include "ZrvProperty.h"

#include "ReportingTest.h"
#include "ZrvPropertyValue.h"

#include <memory>

namespace {

const std::string g_refused = " [condition m_value->SetValueFromProperty(iValue) in ZrvProperty]";
const std::string g_noValue = " [pointer m_value in ZrvProperty]";

using Int = ZrvPropertyValue<KELINT32>;

using ZrvPropertyTest = ReportingTest;

std::unique_ptr<ZrvProperty> Create(const char* iType)
{
    ZrvProperty* property = nullptr;
    const bool isMade = !ZrvProperty::CreateProperty(iType, property, nullptr).IsError();
    EXPECT_EQ(isMade, property != nullptr);
    return std::unique_ptr<ZrvProperty>(property);
}

/// A value that takes anything and says so in its own way.
class TalkativeValue : public Int {
public:
    explicit TalkativeValue(ZrvRC::ErrorCode iAnswer) : Int(0), m_answer(iAnswer) {}
    ZrvPropertyValueBase* Duplicate() const override { return new TalkativeValue(*this); }
    ZrvRC SetValueFromProperty(const ZrvPropertyValueBase&) override { return ZrvRC(m_answer, "own words"); }

private:
    ZrvRC::ErrorCode m_answer;
};

TEST_F(ZrvPropertyTest, HandsErrorsOnAndNoOtherCode)
{
    for (const auto& [code, answer] :
         {std::pair<ZrvRC::ErrorCode, std::string>{ZrvRC::zrvEC_NothingDone, "ok"},
          std::pair<ZrvRC::ErrorCode, std::string>{static_cast<ZrvRC::ErrorCode>(2), "2: own words" + g_refused}}) {
        ZrvProperty property(nullptr);
        EXPECT_EQ(Answer(property.SetValue(TalkativeValue(code))), "ok") << "taken as the first value";
        const std::unique_ptr<ZrvProperty> copy(property.Duplicate());
        EXPECT_EQ(Answer(copy->SetValue(Int(1))), answer);
    }
}

TEST_F(ZrvPropertyTest, WithoutAValue)
{
    ZrvProperty property(nullptr);
    EXPECT_EQ(Answer(property.GetValue()), "null");
    EXPECT_EQ(Answer(property.GetType()), "''" + g_noValue);
    EXPECT_EQ(Answer(property.Duplicate()), "null" + g_noValue);
    EXPECT_EQ(Answer(property.SetValue(ZrvPropertyValueBase())), "ok");
    EXPECT_EQ(Answer(property.GetValue()), "null") << "a value without a type duplicates to none";
    const auto lost = Create("KELINT32");
    lost->m_value = nullptr;
    EXPECT_FALSE(Create("KELINT32")->IsPlainLike(*lost));
    for (ZrvProperty* each : {&property, lost.get()}) {
        EXPECT_FALSE(each->AssignPlain(Int(3)));
        EXPECT_EQ(Answer(each->SetValue(Int(3))), "ok");
        EXPECT_TRUE(each->GetValue()->IsPurelyIdenticalTo(Int(3)));
    }
}

// What a property with parameters hands out is tested with the set that asks for it.
TEST_F(ZrvPropertyTest, WhatIsHandedOutNeedsAPlace)
{
    EXPECT_EQ(Create("int"), nullptr);
    const auto held = Create("float");
    ZrvProperty* property = held.get();
    EXPECT_EQ(Answer(ZrvProperty::CreateProperty("double", property, nullptr)),
              "error [condition !oProperty in ZrvProperty]");
    ZrvProperties other;
    ZrvProperties* parameters = &other;
    EXPECT_EQ(Answer(held->GetParameters(nullptr)), "error [pointer opProperties in ZrvProperty]");
    EXPECT_EQ(Answer(held->GetParameters(&parameters)), "error [condition !(*opProperties) in ZrvProperty]");
    EXPECT_TRUE(property == held.get() && parameters == &other);
    parameters = nullptr;
    EXPECT_EQ(Answer(held->GetParameters(&parameters)), "ok");
    EXPECT_EQ(parameters, nullptr);
}

} // namespace
