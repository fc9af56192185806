#include "ZrvPropertyValue.h"

#include "NineTypes.h"
#include "ReportingTest.h"

#include <limits>
#include <memory>
#include <tuple>

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
    KELRawCollfloat lists[4]; // empty, {0, 0}, {1, 1}, {0, 0}
    lists[1].Size(2, 0.0F);
    lists[2].Size(2, 1.0F);
    lists[3].Size(2, 0.0F);
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            EXPECT_EQ(ZrvPropertyValue_LstFloatComparator(lists[i], lists[j]), i == j || i * j == 3) << i << " " << j;
        }
    }
}

template <class T>
class TypedValues : public ReportingTest {
protected:
    using Value = ZrvPropertyValue<T>;

    const Samples<T> samples;
    Value value{samples.first};
};
TYPED_TEST_SUITE(TypedValues, NineTypes<::testing::Types>);

TYPED_TEST(TypedValues, SetGetDuplicateAndCompare)
{
    const std::unique_ptr<ZrvPropertyValueBase> copy(this->value.Duplicate());
    EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(this->value.GetType()), this->value.kType);
    EXPECT_TRUE(this->value.IsPurelyIdenticalTo(*copy));
    EXPECT_EQ(this->Answer(this->value.SetValue(this->samples.second)), "ok");
    EXPECT_FALSE(this->value.IsPurelyIdenticalTo(*copy)) << "a copy of its own";
    EXPECT_FALSE(copy->IsPurelyIdenticalTo(this->value));
    EXPECT_EQ(this->Answer(copy->SetValueFromProperty(this->value)), "ok");
    EXPECT_TRUE(this->value.IsPurelyIdenticalTo(*copy));
    EXPECT_TRUE(ZrvPropertyValue<TypeParam>(Read<TypeParam>(copy.get())).IsPurelyIdenticalTo(this->value));
}

template <class... T>
using OneOfEach = std::tuple<ZrvPropertyValue<T>...>;

TYPED_TEST(TypedValues, RefuseEveryOtherType)
{
    unsigned char byte = 0;
    const NineTypes<OneOfEach> nine(&byte, "first", KELBoolean{41}, 41, 41U, 41.0F, 41.0, KELRawCollfloat(3), nullptr);
    const auto refuse = [this](const ZrvPropertyValueBase& iOther) {
        if (iOther.GetType() != this->value.GetType()) {
            EXPECT_EQ(this->Answer(this->value.SetValueFromProperty(iOther)), "error");
            EXPECT_FALSE(this->value.IsPurelyIdenticalTo(iOther));
        }
    };
    std::apply([&refuse](const auto&... iOthers) { (refuse(iOthers), ...); }, nine);
    refuse(ZrvPropertyValueBase());
    refuse(NamedValue("int"));
    EXPECT_TRUE(this->value.IsPurelyIdenticalTo(ZrvPropertyValue<TypeParam>(this->samples.first)));
}

template <class T>
bool AreIdentical(T iFirst, T iSecond)
{
    return ZrvPropertyValue<T>(iFirst).IsPurelyIdenticalTo(ZrvPropertyValue<T>(iSecond));
}

TEST(ZrvPropertyValue, ComparesNumbersAsTheirTypesDo)
{
    EXPECT_FALSE(AreIdentical(std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::quiet_NaN()));
    EXPECT_FALSE(AreIdentical(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(AreIdentical(0.0F, -0.0F));
    EXPECT_TRUE(AreIdentical(0.0, -0.0));
    EXPECT_FALSE(AreIdentical(KELBoolean{1}, KELBoolean{2}));
    EXPECT_TRUE(AreIdentical<KELSysTSBaseUnknown*>(nullptr, nullptr));
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
    using Value = ZrvPropertyValue<KELSysTSBaseUnknown*>;
    bool isGone = false;
    auto* const object = new CountedObject(&isGone);
    Value value(object);
    {
        const std::unique_ptr<ZrvPropertyValueBase> copy(value.Duplicate());
        EXPECT_TRUE(copy->IsPurelyIdenticalTo(value));
        Value other(nullptr);
        other.SetValueFromProperty(value);
        other.SetValueFromProperty(*copy);
        EXPECT_EQ(CountOf(*object), 4U);
        other.SetValue(nullptr);
        EXPECT_EQ(CountOf(*object), 3U);
        other = value;
        EXPECT_EQ(other.GetValue()->Release(), 4U) << "a reference for the caller";
    }
    EXPECT_EQ(object->Release(), 1U);
    value.SetValue(object);
    EXPECT_FALSE(isGone) << "taken again before it was given up";
    value.SetValue(nullptr);
    EXPECT_TRUE(isGone);
}

} // namespace
