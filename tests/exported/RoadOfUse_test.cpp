#include "Zorvel.h"

#include "NineTypes.h"

#include <gtest/gtest.h>

namespace {

template <class T>
class RoadOfUse : public ::testing::Test {
};
TYPED_TEST_SUITE(RoadOfUse, NineTypes);

// From a declaration to a copy in another set, the way a component goes.
TYPED_TEST(RoadOfUse, FromPrototypeToCopy)
{
    using Value = ZrvPropertyValue<TypeParam>;
    const Samples<TypeParam> samples;
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl prototype;
    EXPECT_TRUE(prototype.AddProperty("value", Value::kType, &nested) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(CountOf(nested), 2U);
    {
        ZrvProperties set(&prototype);
        EXPECT_EQ(CountOf(prototype), 2U);
        EXPECT_TRUE(set.AddProperty("value") == ZrvRC::zrvEC_OK);
        EXPECT_EQ(CountOf(nested), 3U);
        EXPECT_EQ(ZrvPropertyTypeConv::GetEnum(set.GetPropertyType("value")), Value::kType);

        const ZrvPropertyValueBase* held = set.GetProperty("value");
        EXPECT_TRUE(set.SetProperty("value", Value(samples.second)) == ZrvRC::zrvEC_OK);
        EXPECT_EQ(set.GetProperty("value"), held) << "assigned in place";
        ASSERT_EQ(held->GetType(), ZrvPropertyTypeConv::GetAsUnicode(Value::kType));
        EXPECT_TRUE(Value(Read<TypeParam>(held)).IsPurelyIdenticalTo(Value(samples.second)));

        KELListValKELUnicodeString names;
        EXPECT_EQ(set.GetListProperties(names), 1);
        EXPECT_EQ(names[1], KELUnicodeString("value"));

        ZrvProperties free;
        EXPECT_TRUE(free.SetFromProperties(set) == ZrvRC::zrvEC_OK);
        const ZrvPropertyValueBase* taken = free.GetProperty("value");
        EXPECT_TRUE(taken->IsPurelyIdenticalTo(*held));
        ZrvProperties assigned;
        assigned = set;
        const ZrvProperties copy(assigned);
        EXPECT_TRUE(copy.GetProperty("value")->IsPurelyIdenticalTo(*held));
        EXPECT_EQ(CountOf(prototype), 4U);
        EXPECT_EQ(CountOf(nested), 5U)
            << "a set that follows a prototype takes the nested one from it, a free set none";
        set.SetProperty("value", Value(samples.first));
        EXPECT_FALSE(copy.GetProperty("value")->IsPurelyIdenticalTo(*held)) << "a copy of its own";
        EXPECT_TRUE(free.SetFromProperties(set) == ZrvRC::zrvEC_OK);
        EXPECT_EQ(free.GetProperty("value"), taken) << "assigned in place";
        EXPECT_TRUE(taken->IsPurelyIdenticalTo(*held));
    }
    EXPECT_EQ(CountOf(prototype), 1U);
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(QUORVEL_INTERNAL_Zorvel(), 1);
}

} // namespace
