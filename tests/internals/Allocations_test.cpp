#include "ZrvProperties.h"
#include "ZrvPrototypeImpl.h"

#include "NineTypes.h"
#include "OwnMemory.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// The allocations that an operation makes.
template <class Operation>
long AllocationsOf(const Operation& iOperation)
{
    const long before = OwnMemory::Allocations();
    iOperation();
    return OwnMemory::Allocations() - before;
}

template <class T>
class Allocations : public ::testing::Test {
};
TYPED_TEST_SUITE(Allocations, NineTypes<::testing::Types>);

TYPED_TEST(Allocations, NoneForAPropertyThatIsThere)
{
    const Samples<TypeParam> samples;
    const ZrvPropertyValue<TypeParam> value(samples.second);
    const KELUnicodeString name(std::string(1000, 'n').c_str());
    ZrvProperties set;
    set.AddProperty(name.ConvertToChar(), ZrvPropertyTypeConv::GetAsUnicode(value.kType), nullptr);
    EXPECT_EQ(AllocationsOf([&] {
                  EXPECT_TRUE(set.SetProperty(name, value).IsValid());
                  Read<TypeParam>(set.GetProperty(name));
                  EXPECT_TRUE(set.GetProperty(name)->IsPurelyIdenticalTo(value));
                  EXPECT_EQ(set.HasProperty(name), 1);
                  EXPECT_EQ(set.GetAvailability(name), ZrvProperties::zrvPA_Instantiated);
                  EXPECT_GT(set.GetPropertyType(name).GetLengthInChar(), 0);
              }),
              0);
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
    ZrvProperties set(&prototype);
    EXPECT_LE(AllocationsOf([&] {
                  for (const KELUnicodeString& name : names) {
                      set.AddProperty(name);
                  }
              }),
              18);
    EXPECT_LE(AllocationsOf([&] { const ZrvProperties copy(set); }), 20);
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
