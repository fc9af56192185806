#include "ZrvPropertyValue.h"

#include "NineTypes.h"
#include "ReportingTest.h"

#include <memory>

namespace {

/// A value of a caller's own, which leaves to the base what it does not need.
class NamedValue : public ZrvPropertyValueBase {
public:
    explicit NamedValue(const char* iType) : m_type(iType) {}
    KELUnicodeString GetType() const override { return m_type; }

private:
    const char* m_type;
};

/// A value that counts what it is asked and takes 1 away from what it is set to.
class CountingValue : public ZrvPropertyValue<KELINT32> {
public:
    using ZrvPropertyValue::ZrvPropertyValue;

    KELUnicodeString GetType() const override
    {
        ++typeQuestions;
        return ZrvPropertyValue::GetType();
    }
    KELINT32 GetValue() const override
    {
        ++valueQuestions;
        return ZrvPropertyValue::GetValue();
    }
    ZrvRC SetValue(KELINT32 iValue) override
    {
        ZrvPropertyValue::SetValue(iValue - 1);
        return ZrvRC(ZrvRC::zrvEC_NothingDone, "own");
    }

    mutable int typeQuestions = 0;
    mutable int valueQuestions = 0;
};

using ZrvPropertyValueBaseTest = ReportingTest;

TEST_F(ZrvPropertyValueBaseTest, IsAValueWithoutType)
{
    ZrvPropertyValueBase value;
    EXPECT_EQ(Answer(value.GetType()), "''");
    EXPECT_EQ(Answer(value.Duplicate()), "null");
    EXPECT_FALSE(value.IsPurelyIdenticalTo(value));
    EXPECT_EQ(Answer(value.SetValueFromProperty(ZrvPropertyValue<float>(1))),
              "error [message Property value wihtout type cannot be set. in ZrvPropertyValueBase]");
    EXPECT_EQ(Answer(NamedValue("float").SetValueFromProperty(value)),
              "error [condition GetType().GetLengthInChar()<=0 in ZrvPropertyValueBase]");
}

TEST_F(ZrvPropertyValueBaseTest, FreeFunctions)
{
    EXPECT_EQ(Answer(ZrvPropertyValue_GetStringType()), "'KELUnicodeString'");
    EXPECT_TRUE(ZrvPropertyValue_StringComparator("KELINT32", std::string("KELINT32").c_str()));
    EXPECT_FALSE(ZrvPropertyValue_StringComparator("KELINT32", "KELUINT32"));
    const Samples<KELRawCollfloat> lists;
    EXPECT_TRUE(ZrvPropertyValue_LstFloatComparator(KELRawCollfloat(), KELRawCollfloat(7)));
    EXPECT_FALSE(ZrvPropertyValue_LstFloatComparator(lists.first, lists.second));
}

template <class T>
class TypedValues : public ReportingTest {
protected:
    using Value = ZrvPropertyValue<T>;

    Samples<T> samples;
    Value value{samples.first};
};
TYPED_TEST_SUITE(TypedValues, NineTypes<::testing::Types>);

TYPED_TEST(TypedValues, SetGetDuplicateAndCompare)
{
    const std::unique_ptr<ZrvPropertyValueBase> copy(this->value.Duplicate());
    EXPECT_EQ(this->Answer(this->value.SetValue(this->samples.second)), "ok");
    EXPECT_FALSE(this->value.IsPurelyIdenticalTo(*copy)) << "a copy of its own";
    EXPECT_EQ(this->Answer(copy->SetValueFromProperty(this->value)), "ok");
    EXPECT_TRUE(this->value.IsPurelyIdenticalTo(*copy));
    EXPECT_TRUE(ZrvPropertyValue<TypeParam>(Read<TypeParam>(copy.get())).IsPurelyIdenticalTo(this->value));
    const NamedValue unknown("int");
    EXPECT_EQ(this->Answer(this->value.SetValueFromProperty(unknown)), "error");
    EXPECT_FALSE(this->value.IsPurelyIdenticalTo(unknown));
}

TEST(ZrvPropertyValue, ZeroesAreIdentical)
{
    EXPECT_TRUE(ZrvPropertyValue<float>(0.0F).IsPurelyIdenticalTo(ZrvPropertyValue<float>(-0.0F)));
    EXPECT_TRUE(ZrvPropertyValue<double>(0.0).IsPurelyIdenticalTo(ZrvPropertyValue<double>(-0.0)));
}

TEST(ZrvPropertyValue, DerivedValuesAreAskedThroughTheirOwnOperations)
{
    CountingValue derived(10);
    ZrvPropertyValue<KELINT32> plain(0);
    EXPECT_EQ(InWords(plain.SetValueFromProperty(derived)), "ok");
    EXPECT_EQ(plain.GetValue(), 10);
    EXPECT_EQ(derived.typeQuestions, 2);
    EXPECT_EQ(derived.valueQuestions, 1);
    EXPECT_EQ(InWords(derived.SetValueFromProperty(ZrvPropertyValue<KELINT32>(20))), "nothing done: own");
    EXPECT_TRUE(derived.IsPurelyIdenticalTo(ZrvPropertyValue<KELINT32>(19)));
}

TEST(ZrvPropertyValue, ObjectPointersKeepOneReference)
{
    bool isGone = false;
    auto* const object = new CountedObject(&isGone);
    ZrvPropertyValue<KELSysTSBaseUnknown*> value(nullptr);
    value.SetValue(object);
    value.SetValue(object);
    EXPECT_EQ(CountOf(*object), 2U);
    EXPECT_TRUE(value.IsPurelyIdenticalTo(ZrvPropertyValue<KELSysTSBaseUnknown*>(object)));
    EXPECT_EQ(value.GetValue()->Release(), 2U) << "a reference for the caller";
    EXPECT_EQ(object->Release(), 1U);
    value.SetValue(object);
    EXPECT_FALSE(isGone) << "taken again before it was given up";
    value.SetValue(nullptr);
    EXPECT_TRUE(isGone);
}

} // namespace
