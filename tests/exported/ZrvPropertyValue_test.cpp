#include "ZrvPropertyValue.h"

#include "CheckRecorder.h"
#include "NineTypes.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

constexpr char kFile[] = "ZrvPropertyValueBase";

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

void ExpectRefused(ZrvRC iRc)
{
    EXPECT_EQ(iRc.GetRC(), ZrvRC::zrvEC_Error);
    EXPECT_STREQ(iRc.Dump(), "");
}

TEST(ZrvPropertyValueBase, IsAValueWithoutType)
{
    CheckRecorder reports;
    ZrvPropertyValueBase value;
    EXPECT_EQ(value.GetType().GetLengthInChar(), 0);
    EXPECT_EQ(value.Duplicate(), nullptr);
    EXPECT_FALSE(value.IsPurelyIdenticalTo(value));
    EXPECT_EQ(reports.Take(), Nothing());
    ExpectRefused(value.SetValueFromProperty(ZrvPropertyValue<float>(1)));
    EXPECT_EQ(reports.Take(), Message("Property value wihtout type cannot be set.", kFile));
    ExpectRefused(NamedValue("float").SetValueFromProperty(value));
    EXPECT_EQ(reports.Take(), Condition("GetType().GetLengthInChar()<=0", kFile));
}

TEST(ZrvPropertyValueBase, FreeFunctions)
{
    EXPECT_EQ(ZrvPropertyValue_GetStringType(), KELUnicodeString("KELUnicodeString"));
    EXPECT_TRUE(ZrvPropertyValue_StringComparator("KELINT32", std::string("KELINT32").c_str()));
    EXPECT_FALSE(ZrvPropertyValue_StringComparator("KELINT32", "KELUINT32"));
    KELRawCollfloat empty;
    KELRawCollfloat zeros;
    zeros.Size(2, 0.0F);
    KELRawCollfloat ones;
    ones.Size(2, 1.0F);
    EXPECT_TRUE(ZrvPropertyValue_LstFloatComparator(empty, KELRawCollfloat(7)));
    EXPECT_FALSE(ZrvPropertyValue_LstFloatComparator(empty, zeros));
    EXPECT_FALSE(ZrvPropertyValue_LstFloatComparator(zeros, ones));
    EXPECT_TRUE(ZrvPropertyValue_LstFloatComparator(zeros, KELRawCollfloat(zeros)));
}

template <class T>
class TypedValues : public ::testing::Test {
protected:
    Samples<T> samples;
};
TYPED_TEST_SUITE(TypedValues, NineTypes);

TYPED_TEST(TypedValues, SetGetDuplicateAndCompare)
{
    using Value = ZrvPropertyValue<TypeParam>;
    Value value(this->samples.first);
    EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(value.GetType()), Value::kType);

    const std::unique_ptr<ZrvPropertyValueBase> copy(value.Duplicate());
    EXPECT_NE(dynamic_cast<Value*>(copy.get()), nullptr);
    EXPECT_TRUE(value.IsPurelyIdenticalTo(*copy));

    ZrvRC rc = value.SetValue(this->samples.second);
    EXPECT_TRUE(rc == ZrvRC::zrvEC_OK);
    EXPECT_FALSE(value.IsPurelyIdenticalTo(*copy));
    EXPECT_TRUE(copy->IsPurelyIdenticalTo(Value(this->samples.first))) << "a copy of its own";

    rc = copy->SetValueFromProperty(value);
    EXPECT_TRUE(rc == ZrvRC::zrvEC_OK);
    EXPECT_STREQ(rc.Dump(), "");
    EXPECT_TRUE(value.IsPurelyIdenticalTo(*copy));
}

TYPED_TEST(TypedValues, RefuseEveryOtherType)
{
    CheckRecorder reports;
    const ZrvPropertyValue<TypeParam> untouched(this->samples.first);
    ZrvPropertyValue<TypeParam> value(untouched);
    unsigned char byte = 0;
    const ZrvPropertyValue<unsigned char*> others0(&byte);
    const ZrvPropertyValue<KELUnicodeString> others1("first");
    const ZrvPropertyValue<KELBoolean> others2(41);
    const ZrvPropertyValue<KELINT32> others3(41);
    const ZrvPropertyValue<KELUINT32> others4(41);
    const ZrvPropertyValue<float> others5(41);
    const ZrvPropertyValue<double> others6(41);
    const ZrvPropertyValue<KELRawCollfloat> others7{KELRawCollfloat(3)};
    const ZrvPropertyValue<KELSysTSBaseUnknown*> others8(nullptr);
    const ZrvPropertyValueBase bare;
    const NamedValue unknown("int");
    const ZrvPropertyValueBase* const others[] = {&others0, &others1, &others2, &others3, &others4, &others5,
                                                  &others6, &others7, &others8, &bare,    &unknown};
    for (const ZrvPropertyValueBase* other : others) {
        if (other->GetType() != value.GetType()) {
            ExpectRefused(value.SetValueFromProperty(*other));
            EXPECT_FALSE(value.IsPurelyIdenticalTo(*other));
        }
    }
    EXPECT_TRUE(value.IsPurelyIdenticalTo(untouched));
    EXPECT_EQ(reports.Take(), Nothing());
}

TEST(ZrvPropertyValue, ComparesNumbersAsTheirTypesDo)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_FALSE(ZrvPropertyValue<float>(nan).IsPurelyIdenticalTo(ZrvPropertyValue<float>(nan)));
    EXPECT_FALSE(ZrvPropertyValue<double>(nan).IsPurelyIdenticalTo(ZrvPropertyValue<double>(nan)));
    EXPECT_TRUE(ZrvPropertyValue<float>(0.0F).IsPurelyIdenticalTo(ZrvPropertyValue<float>(-0.0F)));
    EXPECT_TRUE(ZrvPropertyValue<double>(0.0).IsPurelyIdenticalTo(ZrvPropertyValue<double>(-0.0)));
    EXPECT_FALSE(ZrvPropertyValue<KELBoolean>(1).IsPurelyIdenticalTo(ZrvPropertyValue<KELBoolean>(2)));
    EXPECT_TRUE(ZrvPropertyValue<KELSysTSBaseUnknown*>(nullptr).IsPurelyIdenticalTo(
        ZrvPropertyValue<KELSysTSBaseUnknown*>(nullptr)));
}

TEST(ZrvPropertyValue, DerivedValuesAreAskedThroughTheirOwnOperations)
{
    CountingValue derived(10);
    ZrvPropertyValue<KELINT32> plain(0);
    EXPECT_TRUE(plain.SetValueFromProperty(derived) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(plain.GetValue(), 10);
    EXPECT_EQ(derived.typeQuestions, 2);
    EXPECT_EQ(derived.valueQuestions, 1);

    ZrvRC rc = derived.SetValueFromProperty(ZrvPropertyValue<KELINT32>(20));
    EXPECT_TRUE(rc == ZrvRC::zrvEC_NothingDone);
    EXPECT_STREQ(rc.Dump(), "own");
    EXPECT_TRUE(derived.IsPurelyIdenticalTo(ZrvPropertyValue<KELINT32>(19)));
}

TEST(ZrvPropertyValue, ObjectPointersKeepOneReference)
{
    using Value = ZrvPropertyValue<KELSysTSBaseUnknown*>;
    CountedObject object;
    {
        Value value(nullptr);
        value.SetValue(&object);
        EXPECT_EQ(CountOf(object), 2U);
        value.SetValue(&object);
        EXPECT_EQ(CountOf(object), 2U) << "the object held already";
        const std::unique_ptr<ZrvPropertyValueBase> copy(value.Duplicate());
        EXPECT_EQ(CountOf(object), 3U);
        EXPECT_TRUE(copy->IsPurelyIdenticalTo(value));
        EXPECT_EQ(CountOf(object), 3U);
        EXPECT_EQ(value.GetValue()->Release(), 3U) << "a reference for the caller";

        Value empty(nullptr);
        EXPECT_FALSE(empty.IsPurelyIdenticalTo(value));
        empty.SetValueFromProperty(value);
        EXPECT_EQ(CountOf(object), 4U);
        empty.SetValueFromProperty(value);
        EXPECT_EQ(CountOf(object), 4U);
        empty.SetValue(nullptr);
        EXPECT_EQ(CountOf(object), 3U);
        empty = value;
        EXPECT_EQ(CountOf(object), 4U);
    }
    EXPECT_EQ(CountOf(object), 1U);

    bool isGone = false;
    Value last(nullptr);
    auto* const owned = new CountedObject(&isGone);
    last.SetValue(owned);
    owned->Release();
    last.SetValue(owned);
    EXPECT_FALSE(isGone) << "taken again before it was given up";
    last.SetValue(nullptr);
    EXPECT_TRUE(isGone);
}

} // namespace
