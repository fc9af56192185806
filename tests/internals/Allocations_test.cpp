#include "ZrvProperties.h"
#include "ZrvPropertyValue.h"
#include "ZrvPrototypeImpl.h"

#include "AllocationCount.h"
#include "NineTypes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// The allocations that an operation makes.
template <class Operation>
int AllocationsOf(const Operation& iOperation)
{
    const int before = AllocationCount();
    iOperation();
    return AllocationCount() - before;
}

template <class T>
class Allocations : public ::testing::Test {
};
TYPED_TEST_SUITE(Allocations, NineTypes);

TYPED_TEST(Allocations, NoneForAPropertyThatIsThere)
{
    const Samples<TypeParam> samples;
    const ZrvPropertyValue<TypeParam> value(samples.second);
    const KELUnicodeString name(std::string(1000, 'n').c_str());
    const KELUnicodeString sameName(name.ConvertToChar());
    ZrvProperties set;
    set.AddProperty(name, ZrvPropertyTypeConv::GetAsUnicode(value.kType), nullptr);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_TRUE(set.SetProperty(sameName, value).IsValid()); }), 0);
    EXPECT_EQ(AllocationsOf([&] { Read<TypeParam>(set.GetProperty(sameName)); }), 0);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_TRUE(set.GetProperty(sameName)->IsPurelyIdenticalTo(value)); }), 0);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(set.HasProperty(sameName), 1); }), 0);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(set.GetAvailability(sameName), ZrvProperties::zrvPA_Instantiated); }), 0);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_GT(set.GetPropertyType(sameName).GetLengthInChar(), 0); }), 0);
    EXPECT_EQ(AllocationsOf([&] { EXPECT_EQ(set.HasProperty("x"), 0); }), 1) << "the key itself";
}

TEST(AllocationCounts, OneForEachPropertyOfASetAndFewForTheSet)
{
    KELUnicodeString names[16];
    ZrvPrototypeImpl prototype;
    for (int i = 0; i < 16; ++i) {
        names[i] = KELUnicodeString(("property" + std::to_string(i)).c_str());
        prototype.AddProperty(names[i], static_cast<ZrvPropertyType>(i % 9), nullptr);
    }
    EXPECT_LE(AllocationsOf([&] {
                  ZrvProperties set(&prototype);
                  for (const KELUnicodeString& name : names) {
                      set.AddProperty(name);
                  }
              }),
              20);
    ZrvProperties source(&prototype);
    for (const KELUnicodeString& name : names) {
        source.AddProperty(name);
    }
    EXPECT_LE(AllocationsOf([&] { const ZrvProperties copy(source); }), 20);
}

TEST(AllocationCounts, NoneForSuccessAndForCopiesOfText)
{
    const KELUnicodeString text("a text of some length");
    EXPECT_EQ(AllocationsOf([&] {
                  ZrvRC rc = ZrvRC::zrvEC_OK;
                  rc.Add(ZrvRC());
                  KELUnicodeString copy(text);
                  copy = text;
                  EXPECT_EQ(copy, ZrvRC(ZrvRC::zrvEC_Error, text).GetTrace());
              }),
              0);
}

} // namespace
