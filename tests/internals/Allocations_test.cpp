#include "OwnMemory.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <string>

namespace {

template <class Operation>
long AllocationsOf(const Operation& iOperation)
{
    const long before = OwnMemory::s_allocations;
    iOperation();
    return OwnMemory::s_allocations - before;
}

#define ZRV_NAME(id, name, type) name,
constexpr const char* kTypes[] = {ZRV_PROPERTY_TYPES(ZRV_NAME)};
#undef ZRV_NAME

TEST(Allocations, NoneForAPropertyThatIsThere)
{
    for (const char* const type : kTypes) {
        const KELUnicodeString name(std::string(1000, 'n').c_str());
        ZrvProperties set;
        set.AddProperty(name, type, nullptr);
        const ZrvProperties copy(set);
        const ZrvPropertyValueBase* const value = copy.GetProperty(name);
        EXPECT_EQ(AllocationsOf([&] {
                      EXPECT_TRUE(set.SetProperty(name, *value).IsValid() && set.HasProperty(name));
                      EXPECT_TRUE(set.GetProperty(name)->IsPurelyIdenticalTo(*value));
                      EXPECT_TRUE(set.GetAvailability(name) == ZrvProperties::zrvPA_Instantiated);
                      EXPECT_GT(set.GetPropertyType(name).GetLengthInChar(), 0);
                  }),
                  0)
            << type;
    }
}

TEST(Allocations, OneForEachPropertyOfASetAndFewForTheSet)
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

} // namespace
