#include "ZrvPropertyDefinition.h"

#include "CountedObject.h"
#include "ReportingTest.h"
#include "ZrvPrototypeImpl.h"

namespace {

using ZrvPropertyDefinitionTest = ReportingTest;

TEST_F(ZrvPropertyDefinitionTest, TypeIsSetOnce)
{
    ZrvPropertyDefinition definition("", nullptr);
    EXPECT_EQ(definition.GetAsType(), zrvPT_Undefined);
    for (const auto& [type, answer] :
         {std::pair("", "error"), std::pair("t", "ok"), std::pair("", "error"), std::pair("t", "ok"),
          std::pair("double", "error: Value type of property is already defined.")}) {
        EXPECT_EQ(Answer(definition.SetType(type)), answer) << type;
    }
    EXPECT_EQ(Answer(definition.GetType()), "'t'");
    EXPECT_EQ(ZrvPropertyDefinition("float", nullptr).GetAsType(), zrvPT_Float);
}

TEST_F(ZrvPropertyDefinitionTest, PrototypeIsSetOnceAndEveryHolderHasOneReference)
{
    ZrvPrototypeImpl one;
    ZrvPrototypeImpl other;
    {
        ZrvPropertyDefinition definition("float", nullptr);
        EXPECT_EQ(Answer(definition.SetPrototype(nullptr)),
                  "error: Trying to unset prototype of property. [pointer iPropertyPrototype in "
                  "ZrvPropertyDefinition]");
        EXPECT_EQ(Answer(definition.SetPrototype(&one)), "ok");
        for (ZrvPrototypeImpl* again : {&one, &other}) {
            EXPECT_EQ(Answer(definition.SetPrototype(again)), "error: Prototype of property is already defined.");
        }
        const ZrvPropertyDefinition copy(definition);
        ZrvPropertyDefinition assigned("double", &other);
        assigned = copy;
        assigned = std::as_const(assigned);
        EXPECT_EQ(Answer(assigned.GetType()), "'float'");
        EXPECT_EQ(assigned.GetPrototype(), &one);
        EXPECT_EQ(one.Release(), 4U);
        EXPECT_EQ(CountOf(other), 1U);
    }
    EXPECT_EQ(CountOf(one), 1U);
}

} // namespace
