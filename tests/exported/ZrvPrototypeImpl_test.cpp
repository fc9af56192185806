#include "ZrvPrototypeImpl.h"

#include "CheckRecorder.h"
#include "CountedObject.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

/// A builder that sees which names are declared by which form.
class SpyingPrototype : public ZrvPrototypeImpl {
public:
    using ZrvPrototypeImpl::AddProperty;
    ZrvRC AddProperty(const KELUnicodeString& iPropertyName, const KELUnicodeString& iPropertyType,
                      ZrvConstPropertiesPrototype* iPropertyPrototype) override
    {
        declared = iPropertyType.ConvertToChar();
        return ZrvPrototypeImpl::AddProperty(iPropertyName, iPropertyType, iPropertyPrototype);
    }
    std::string declared;
};

std::multiset<std::string> Names(const ZrvConstPropertiesPrototype& iPrototype)
{
    KELListValKELUnicodeString list;
    EXPECT_TRUE(iPrototype.GetListProperties(list) == ZrvRC::zrvEC_OK);
    std::multiset<std::string> names;
    for (int i = 1; i <= list.Size(); ++i) {
        names.insert(list[i].ConvertToChar());
    }
    return names;
}

bool IsPlain(ZrvRC iRc, ZrvRC::ErrorCode iCode)
{
    return iRc.GetRC() == iCode && iRc.GetTrace().GetLengthInChar() == 0;
}

class ZrvPrototypeImplTest : public ::testing::Test {
protected:
    ~ZrvPrototypeImplTest() override { EXPECT_EQ(reports.Take(), Nothing()); }

    CheckRecorder reports;
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl other;
    ZrvPrototypeImpl prototype;
};

TEST_F(ZrvPrototypeImplTest, AnswersForDeclaredAndUndeclaredNames)
{
    EXPECT_TRUE(IsPlain(prototype.IsValid(), ZrvRC::zrvEC_OK));
    EXPECT_TRUE(IsPlain(prototype.AddProperty("n", "KELINT32", nullptr), ZrvRC::zrvEC_OK));
    EXPECT_TRUE(IsPlain(prototype.AddProperty("odd", "no such type", nullptr), ZrvRC::zrvEC_OK));
    const ZrvConstPropertiesPrototype& reader = prototype;
    struct Case {
        const char* name;
        const char* typeName;
        ZrvPropertyType type;
    };
    for (const Case& c : {Case{"n", "KELINT32", zrvPT_INT32}, Case{"odd", "no such type", zrvPT_Undefined},
                          Case{"N", "", zrvPT_Undefined}, Case{"", "", zrvPT_Undefined}}) {
        const bool isDeclared = *c.typeName != '\0';
        EXPECT_TRUE(IsPlain(reader.HasProperty(c.name), isDeclared ? ZrvRC::zrvEC_OK : ZrvRC::zrvEC_Error)) << c.name;
        EXPECT_STREQ(reader.GetPropertyType(c.name).ConvertToChar(), c.typeName);
        EXPECT_EQ(reader.GetPropertyAsType(c.name), c.type);
        EXPECT_EQ(reader.GetPropertyPrototype(c.name), nullptr);
    }
}

TEST_F(ZrvPrototypeImplTest, RefusesEmptyNamesAndTypes)
{
    EXPECT_TRUE(IsPlain(prototype.AddProperty("", "float", &nested), ZrvRC::zrvEC_Error));
    EXPECT_TRUE(IsPlain(prototype.AddProperty("n", "", &nested), ZrvRC::zrvEC_Error));
    EXPECT_TRUE(IsPlain(prototype.AddProperty("n", zrvPT_Undefined, &nested), ZrvRC::zrvEC_Error));
    EXPECT_TRUE(IsPlain(prototype.AddProperty("", zrvPT_Float, &nested), ZrvRC::zrvEC_Error));
    EXPECT_TRUE(Names(prototype).empty());
    EXPECT_EQ(CountOf(nested), 1U);
}

TEST_F(ZrvPrototypeImplTest, RedeclaresOnlyWhatAgrees)
{
    prototype.AddProperty("n", "KELINT32", nullptr);
    struct Case {
        const char* type;
        ZrvConstPropertiesPrototype* nested;
        ZrvRC::ErrorCode code;
        ZrvConstPropertiesPrototype* held;
    };
    const Case cases[] = {
        {"KELINT32", nullptr, ZrvRC::zrvEC_OK, nullptr},    {"float", nullptr, ZrvRC::zrvEC_Error, nullptr},
        {"float", &nested, ZrvRC::zrvEC_Error, nullptr},    {"KELINT32", &nested, ZrvRC::zrvEC_OK, &nested},
        {"KELINT32", &nested, ZrvRC::zrvEC_Error, &nested}, {"KELINT32", &other, ZrvRC::zrvEC_Error, &nested},
        {"KELINT32", nullptr, ZrvRC::zrvEC_OK, &nested},
    };
    for (const Case& c : cases) {
        EXPECT_TRUE(IsPlain(prototype.AddProperty("n", c.type, c.nested), c.code)) << c.type;
        EXPECT_EQ(prototype.GetPropertyAsType("n"), zrvPT_INT32);
        EXPECT_EQ(CountOf(nested), c.held == &nested ? 2U : 1U);
        EXPECT_EQ(CountOf(other), 1U);
    }
    EXPECT_EQ(Names(prototype).size(), 1U);
}

TEST_F(ZrvPrototypeImplTest, EnumeratedFormGoesThroughTheTypeNameForm)
{
    SpyingPrototype spy;
    EXPECT_TRUE(IsPlain(spy.AddProperty("n", zrvPT_FloatList, nullptr), ZrvRC::zrvEC_OK));
    EXPECT_EQ(spy.declared, "floatList");
}

TEST_F(ZrvPrototypeImplTest, NestedPrototypesAreCounted)
{
    {
        ZrvPrototypeImpl outer;
        outer.AddProperty("with", "float", &nested);
        outer.AddProperty("without", "float", nullptr);
        EXPECT_EQ(CountOf(nested), 2U);
        EXPECT_EQ(static_cast<const ZrvPrototypeImpl&>(outer).GetPropertyPrototype("with"), &nested);
        EXPECT_EQ(CountOf(nested), 3U);

        ZrvConstPropertiesPrototype* out = &other;
        EXPECT_TRUE(IsPlain(outer.GetPropertyPrototype("absent", out), ZrvRC::zrvEC_Error));
        EXPECT_EQ(out, &other) << "left as it was";
        EXPECT_TRUE(IsPlain(outer.GetPropertyPrototype("with", out), ZrvRC::zrvEC_OK));
        EXPECT_EQ(out, &nested);
        EXPECT_EQ(CountOf(nested), 4U);
        EXPECT_TRUE(IsPlain(outer.GetPropertyPrototype("without", out), ZrvRC::zrvEC_OK));
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(CountOf(other), 1U);
        nested.Release();
        nested.Release();

        outer.AddProperty("again", "float", &nested);
        EXPECT_TRUE(IsPlain(outer.RemoveProperty("again"), ZrvRC::zrvEC_OK));
        EXPECT_EQ(CountOf(nested), 2U);
        EXPECT_TRUE(IsPlain(outer.RemoveProperty("again"), ZrvRC::zrvEC_Error));
        EXPECT_TRUE(IsPlain(outer.RemoveProperty(""), ZrvRC::zrvEC_Error));
        EXPECT_EQ(Names(outer), (std::multiset<std::string>{"with", "without"}));
    }
    EXPECT_EQ(CountOf(nested), 1U);
}

TEST_F(ZrvPrototypeImplTest, ListIsAppendedTo)
{
    KELListValKELUnicodeString list;
    list.Append("before");
    EXPECT_TRUE(IsPlain(prototype.GetListProperties(list), ZrvRC::zrvEC_OK));
    EXPECT_EQ(list.Size(), 1);
    prototype.AddProperty("n", "float", nullptr);
    prototype.GetListProperties(list);
    ASSERT_EQ(list.Size(), 2);
    EXPECT_EQ(list[1], KELUnicodeString("before"));
    EXPECT_EQ(list[2], KELUnicodeString("n"));
}

TEST_F(ZrvPrototypeImplTest, LivesUntilTheLastReference)
{
    auto* const outer = new ZrvPrototypeImpl;
    outer->AddProperty("n", "float", &nested);
    EXPECT_EQ(outer->AddRef(), 2U);
    EXPECT_EQ(outer->Release(), 1U);
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(outer->Release(), 0U);
    EXPECT_EQ(CountOf(nested), 1U);
}

} // namespace
