#include "ZrvProperty.h"

#include "CheckRecorder.h"
#include "NineTypes.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace {

constexpr char kFile[] = "ZrvProperty";

using Int = ZrvPropertyValue<KELINT32>;
using UInt = ZrvPropertyValue<KELUINT32>;

std::unique_ptr<ZrvProperty> Create(const KELUnicodeString& iType, ZrvConstPropertiesPrototype* iPrototype = nullptr)
{
    ZrvProperty* property = nullptr;
    ZrvRC rc = ZrvProperty::CreateProperty(iType, property, iPrototype);
    EXPECT_EQ(rc.IsValid(), property != nullptr);
    EXPECT_STREQ(rc.Dump(), "");
    return std::unique_ptr<ZrvProperty>(property);
}

template <class T>
class Factory : public ::testing::Test {
};
TYPED_TEST_SUITE(Factory, NineTypes);

TYPED_TEST(Factory, MakesDefaultsAndDeepCopies)
{
    using Value = ZrvPropertyValue<TypeParam>;
    TypeParam standard{};
    if constexpr (std::is_same_v<TypeParam, KELBoolean>) {
        standard = 1;
    } else if constexpr (std::is_same_v<TypeParam, KELRawCollfloat>) {
        standard.Size(3, 0.0F);
    }
    ZrvPrototypeImpl prototype;
    const Samples<TypeParam> samples;
    {
        const auto property = Create(ZrvPropertyTypeConv::GetAsUnicode(Value::kType), &prototype);
        ASSERT_NE(property, nullptr);
        EXPECT_EQ(CountOf(prototype), 2U);
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(property->GetType()), Value::kType);
        EXPECT_TRUE(property->GetValue()->IsPurelyIdenticalTo(Value(standard)));

        const ZrvPropertyValueBase* held = property->GetValue();
        EXPECT_TRUE(property->SetValue(Value(samples.first)) == ZrvRC::zrvEC_OK);
        EXPECT_EQ(property->GetValue(), held);
        const std::unique_ptr<ZrvProperty> copy(property->Duplicate());
        EXPECT_EQ(CountOf(prototype), 3U);
        EXPECT_TRUE(copy->GetValue()->IsPurelyIdenticalTo(*held));
        copy->SetValue(Value(samples.second));
        EXPECT_TRUE(held->IsPurelyIdenticalTo(Value(samples.first)));
    }
    EXPECT_EQ(CountOf(prototype), 1U);
}

TEST(ZrvProperty, FactoryRefusesWhatItDoesNotKnow)
{
    CheckRecorder reports;
    ZrvPrototypeImpl prototype;
    for (const char* type : {"", "int", "floatList ", "kelint32"}) {
        EXPECT_EQ(Create(type, &prototype), nullptr) << type;
    }
    EXPECT_EQ(CountOf(prototype), 1U);
    EXPECT_EQ(reports.Take(), Nothing());

    const auto held = Create("float");
    ZrvProperty* property = held.get();
    EXPECT_TRUE(ZrvProperty::CreateProperty("double", property, &prototype) == ZrvRC::zrvEC_Error);
    EXPECT_EQ(reports.Take(), Condition("!oProperty", kFile));
    EXPECT_EQ(property, held.get());
    EXPECT_STREQ(property->GetType().ConvertToChar(), "float");
    EXPECT_EQ(CountOf(prototype), 1U);
}

TEST(ZrvProperty, RefusesValuesOfOtherTypes)
{
    CheckRecorder reports;
    const auto property = Create("KELUINT32");
    property->SetValue(UInt(5));
    const Int otherType(7);
    const ZrvPropertyValueBase noType;
    const ZrvPropertyValueBase* const values[] = {&otherType, &noType};
    for (const ZrvPropertyValueBase* value : values) {
        ZrvRC rc = property->SetValue(*value);
        EXPECT_TRUE(rc == ZrvRC::zrvEC_Error);
        EXPECT_STREQ(rc.Dump(), "");
        EXPECT_EQ(reports.Take(), Condition("m_value->SetValueFromProperty(iValue)", kFile));
        EXPECT_EQ(Read<KELUINT32>(property->GetValue()), 5U);
    }
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

TEST(ZrvProperty, HandsErrorsOnAndNoOtherCode)
{
    CheckRecorder reports;
    struct Case {
        ZrvRC::ErrorCode answer;
        ZrvRC::ErrorCode code;
        const char* trace;
    };
    for (const Case& c : {Case{static_cast<ZrvRC::ErrorCode>(2), static_cast<ZrvRC::ErrorCode>(2), "own words"},
                          Case{ZrvRC::zrvEC_NothingDone, ZrvRC::zrvEC_OK, ""}}) {
        ZrvProperty property(nullptr);
        EXPECT_TRUE(property.SetValue(TalkativeValue(c.answer)) == ZrvRC::zrvEC_OK) << "taken as the first value";
        const std::unique_ptr<ZrvProperty> copy(property.Duplicate());
        ZrvRC rc = copy->SetValue(Int(1));
        EXPECT_EQ(rc.GetRC(), c.code);
        EXPECT_STREQ(rc.Dump(), c.trace);
        EXPECT_EQ(reports.Take().size(), c.code == ZrvRC::zrvEC_OK ? 0U : 1U);
    }
}

TEST(ZrvProperty, WithoutAValue)
{
    CheckRecorder reports;
    ZrvPrototypeImpl prototype;
    ZrvProperty property(&prototype);
    EXPECT_EQ(property.GetValue(), nullptr);
    EXPECT_EQ(property.GetType().GetLengthInChar(), 0);
    EXPECT_EQ(reports.Take(), Pointer("m_value", kFile));
    EXPECT_EQ(property.Duplicate(), nullptr);
    EXPECT_EQ(reports.Take(), Pointer("m_value", kFile));
    EXPECT_TRUE(property.SetValue(ZrvPropertyValueBase()) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(property.GetValue(), nullptr) << "a value without a type duplicates to none";
    EXPECT_TRUE(property.SetValue(Int(3)) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(Read<KELINT32>(property.GetValue()), 3);
    EXPECT_EQ(CountOf(prototype), 2U);
    EXPECT_EQ(reports.Take(), Nothing());
}

TEST(ZrvProperty, AfterLosingItsValue)
{
    CheckRecorder reports;
    const auto property = Create("KELINT32");
    const auto other = Create("KELINT32");
    property->m_value = nullptr;
    EXPECT_FALSE(property->AssignPlain(Int(3)));
    EXPECT_FALSE(other->IsPlainLike(*property));
    EXPECT_TRUE(property->SetValue(Int(3)) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(Read<KELINT32>(property->GetValue()), 3);
}

TEST(ZrvProperty, ParametersAreCopiedOut)
{
    CheckRecorder reports;
    const auto property = Create("float");
    ZrvProperties* out = nullptr;
    EXPECT_TRUE(property->GetParameters(&out) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(out, nullptr);

    property->m_pParameters = std::make_unique<ZrvProperties>();
    property->m_pParameters->AddProperty("nested", "KELINT32", nullptr);
    const std::unique_ptr<ZrvProperty> copy(property->Duplicate());
    EXPECT_NE(copy->m_pParameters, property->m_pParameters);
    for (const ZrvProperty* each : {property.get(), copy.get()}) {
        out = nullptr;
        EXPECT_TRUE(each->GetParameters(&out) == ZrvRC::zrvEC_OK);
        const std::unique_ptr<ZrvProperties> parameters(out);
        parameters->SetProperty("nested", Int(9));
        EXPECT_EQ(Read<KELINT32>(each->m_pParameters->GetProperty("nested")), 0);
    }
    EXPECT_EQ(reports.Take(), Nothing());

    EXPECT_TRUE(property->GetParameters(nullptr) == ZrvRC::zrvEC_Error);
    EXPECT_EQ(reports.Take(), Pointer("opProperties", kFile));
    ZrvProperties other;
    out = &other;
    EXPECT_TRUE(property->GetParameters(&out) == ZrvRC::zrvEC_Error);
    EXPECT_EQ(reports.Take(), Condition("!(*opProperties)", kFile));
    EXPECT_EQ(out, &other);
}

} // namespace
