#include "ZrvPropertyDefinition.h"

#include "CheckRecorder.h"
#include "CountedObject.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

namespace {

bool Is(ZrvRC iRc, ZrvRC::ErrorCode iCode, const char* iTrace)
{
    return iRc.GetRC() == iCode && iRc.GetTrace() == iTrace;
}

class ZrvPropertyDefinitionTest : public ::testing::Test {
protected:
    CheckRecorder reports;
    ZrvPrototypeImpl one;
    ZrvPrototypeImpl other;
};

TEST_F(ZrvPropertyDefinitionTest, TypeIsSetOnce)
{
    ZrvPropertyDefinition definition("float", nullptr);
    EXPECT_EQ(definition.GetAsType(), zrvPT_Float);
    EXPECT_TRUE(Is(definition.SetType(""), ZrvRC::zrvEC_Error, ""));
    EXPECT_TRUE(Is(definition.SetType("float"), ZrvRC::zrvEC_OK, ""));
    EXPECT_TRUE(Is(definition.SetType("double"), ZrvRC::zrvEC_Error, "Value type of property is already defined."));
    EXPECT_STREQ(definition.GetType().ConvertToChar(), "float");

    ZrvPropertyDefinition unset("", nullptr);
    EXPECT_TRUE(Is(unset.SetType(""), ZrvRC::zrvEC_Error, ""));
    EXPECT_EQ(unset.GetAsType(), zrvPT_Undefined);
    EXPECT_TRUE(Is(unset.SetType("t"), ZrvRC::zrvEC_OK, ""));
    EXPECT_STREQ(unset.GetType().ConvertToChar(), "t");
    EXPECT_EQ(unset.GetAsType(), zrvPT_Undefined);
    EXPECT_EQ(reports.Take(), Nothing());
}

TEST_F(ZrvPropertyDefinitionTest, PrototypeIsSetOnce)
{
    ZrvPropertyDefinition definition("float", nullptr);
    EXPECT_EQ(definition.GetPrototype(), nullptr);
    EXPECT_TRUE(Is(definition.SetPrototype(nullptr), ZrvRC::zrvEC_Error, "Trying to unset prototype of property."));
    EXPECT_EQ(reports.Take(), Pointer("iPropertyPrototype", "ZrvPropertyDefinition"));
    EXPECT_TRUE(Is(definition.SetPrototype(&one), ZrvRC::zrvEC_OK, ""));
    for (ZrvPrototypeImpl* again : {&one, &other}) {
        EXPECT_TRUE(
            Is(definition.SetPrototype(again), ZrvRC::zrvEC_Error, "Prototype of property is already defined."));
    }
    EXPECT_EQ(reports.Take(), Nothing());
    EXPECT_EQ(CountOf(one), 2U);
    EXPECT_EQ(CountOf(other), 1U);
}

TEST_F(ZrvPropertyDefinitionTest, EveryHolderHasOneReference)
{
    {
        ZrvPropertyDefinition definition("float", &one);
        EXPECT_EQ(CountOf(one), 2U);
        ZrvPropertyDefinition copy(definition);
        EXPECT_EQ(CountOf(one), 3U);
        ZrvPropertyDefinition assigned("double", &other);
        assigned = copy;
        EXPECT_EQ(CountOf(one), 4U);
        EXPECT_EQ(CountOf(other), 1U);
        EXPECT_STREQ(assigned.GetType().ConvertToChar(), "float");
        const ZrvPropertyDefinition& self = assigned;
        assigned = self;
        EXPECT_EQ(CountOf(one), 4U);
        EXPECT_EQ(assigned.GetPrototype(), &one);
        EXPECT_EQ(one.Release(), 4U);
        assigned = ZrvPropertyDefinition("float", nullptr);
        EXPECT_EQ(CountOf(one), 3U);
    }
    EXPECT_EQ(CountOf(one), 1U);
}

} // namespace
