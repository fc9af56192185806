#include "ZrvPropertyValue.h"

#include "NineTypes.h"
#include "ReportingTest.h"

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
    const NamedValue unknown("int");
    ZrvPropertyValue<float> typed(1);
    EXPECT_EQ(Answer(typed.SetValueFromProperty(unknown)), "error");
    EXPECT_FALSE(typed.IsPurelyIdenticalTo(unknown));
    EXPECT_EQ(Answer(NamedValue("f").SetValueFromProperty(value)),
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

TEST(ZrvPropertyValue, AnObjectIsTakenAgainBeforeItIsGivenUp)
{
    bool isGone = false;
    ZrvPropertyValue<KELSysTSBaseUnknown*> value(nullptr);
    {
        const auto object = KELReference<KELSysTSBaseUnknown>::Adopt(new CountedObject(&isGone));
        value.SetValue(object.Get());
    }
    value.SetValueFromProperty(ZrvPropertyValue<KELSysTSBaseUnknown*>(value));
    value.SetValue(Read<KELSysTSBaseUnknown*>(&value));
    EXPECT_FALSE(isGone);
    value.SetValue(nullptr);
    EXPECT_TRUE(isGone);
}

} // namespace
