#include "ZrvPropertyValue.h"

#include "CountedObject.h"
#include "ReportingTest.h"
#include "ZrvProperties.h"

namespace {

using Int = ZrvPropertyValue<KELINT32>;
using Object = ZrvPropertyValue<KELSysTSBaseUnknown*>;

using ZrvPropertyValueTest = ReportingTest;

/// A value of a caller's own, which leaves to the base what it does not need.
class NamedValue : public ZrvPropertyValueBase {
public:
    explicit NamedValue(const char* iType) : m_type(iType) {}
    KELUnicodeString GetType() const override { return m_type; }

private:
    const char* m_type;
};

TEST_F(ZrvPropertyValueTest, UnknownTypesAreRefused)
{
    EXPECT_EQ(Answer(NamedValue("f").SetValueFromProperty(Int(1))),
              "error [condition GetType().GetLengthInChar()<=0 in ZrvPropertyValueBase]");
    EXPECT_EQ(Answer(Int(1).SetValueFromProperty(NamedValue("int"))), "error");
    EXPECT_EQ(Answer(ZrvPropertyValue_GetStringType()), "'KELUnicodeString'");
    EXPECT_FALSE(Int(1).IsPurelyIdenticalTo(NamedValue("int")));
    ZrvProperties set;
    static_cast<void>(set.AddProperty("n", "KELINT32", nullptr));
    EXPECT_EQ(Answer(set.SetProperty("n", NamedValue("f"))),
              "error [condition m_value->SetValueFromProperty(iValue) in ZrvProperty]");
}

/// A value that counts what it is asked and takes 1 away from what it is set to.
class CountingValue : public Int {
public:
    using Int::Int;

    KELUnicodeString GetType() const override { return ++typeQuestions, Int::GetType(); }
    KELINT32 GetValue() const override { return ++valueQuestions, Int::GetValue(); }
    ZrvRC SetValue(KELINT32 iValue) override
    {
        static_cast<void>(Int::SetValue(iValue - 1));
        return ZrvRC(ZrvRC::zrvEC_NothingDone, "own");
    }

    mutable int typeQuestions = 0;
    mutable int valueQuestions = 0;
};

TEST_F(ZrvPropertyValueTest, DerivedValuesAreAskedThroughTheirOwnOperations)
{
    CountingValue derived(10);
    Int plain(0);
    EXPECT_EQ(Answer(plain.SetValueFromProperty(derived)), "ok");
    EXPECT_EQ(plain.GetValue(), 10);
    EXPECT_EQ(derived.typeQuestions, 2);
    EXPECT_EQ(derived.valueQuestions, 1);
    EXPECT_EQ(Answer(derived.SetValueFromProperty(Int(20))), "nothing done: own");
    EXPECT_TRUE(derived.IsPurelyIdenticalTo(Int(19)));
    ZrvProperties set;
    static_cast<void>(set.AddProperty("n", "KELINT32", nullptr));
    const int valueQuestions = derived.valueQuestions;
    EXPECT_EQ(Answer(set.SetProperty("n", derived)), "ok");
    EXPECT_EQ(derived.valueQuestions, valueQuestions + 1);
}

TEST_F(ZrvPropertyValueTest, AnObjectIsTakenAgainBeforeItIsGivenUp)
{
    bool isGone = false;
    auto* const object = new CountedObject([&isGone] { isGone = true; });
    Object value(object);
    object->Release();
    static_cast<void>(value.SetValueFromProperty(Object(value)));
    static_cast<void>(value.SetValue(object));
    EXPECT_FALSE(isGone);
    static_cast<void>(value.SetValue(nullptr));
    EXPECT_TRUE(isGone);
}

} // namespace
