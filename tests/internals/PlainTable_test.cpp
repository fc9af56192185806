#include "KELSYPHashMap.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

// Maps and sets over a platform's table that offers no more than the plain interface.
namespace {

TEST(PlainTable, ServesMapsAndSets)
{
    KELSYPHashMap<KELUnicodeString, int> map;
    EXPECT_TRUE(map.Insert("key", 1) == 1 && map.Insert("key", 2) == 0 && *map.Locate("key") == 2);
    EXPECT_TRUE(map.Remove("key") == 1 && map.Remove("key") == 0 && map.Size() == 0);

    ZrvPrototypeImpl prototype;
    prototype.AddProperty("a", zrvPT_INT32, nullptr);
    ZrvProperties bound(&prototype);
    EXPECT_TRUE(bound.AddProperty("a").IsValid() && bound.SetProperty("a", ZrvPropertyValue<KELINT32>(7)).IsValid());
    ZrvProperties set;
    set.AddProperty("b", "float", nullptr);
    EXPECT_TRUE(set.SetFromProperties(bound).IsValid());
    const ZrvProperties copy(set);
    set = bound;
    for (const ZrvProperties* each : {&copy, static_cast<const ZrvProperties*>(&set)}) {
        EXPECT_TRUE(each->GetProperty("a")->IsPurelyIdenticalTo(ZrvPropertyValue<KELINT32>(7)));
    }
    EXPECT_TRUE(copy.HasProperty("b") == 1 && set.HasProperty("b") == 0);
    set = ZrvProperties();
    EXPECT_EQ(set.HasProperty("a"), 0);
}

} // namespace
