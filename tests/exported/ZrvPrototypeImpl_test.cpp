#include "ZrvPrototypeImpl.h"

#include "CountedObject.h"
#include "ReportingTest.h"

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

class ZrvPrototypeImplTest : public ReportingTest {
protected:
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl other;
    ZrvPrototypeImpl prototype;
};

TEST_F(ZrvPrototypeImplTest, AnswersForDeclaredAndUndeclaredNames)
{
    EXPECT_EQ(Answer(prototype.IsValid()), "ok");
    EXPECT_EQ(Answer(prototype.AddProperty("n", "KELINT32", nullptr)), "ok");
    EXPECT_EQ(Answer(prototype.AddProperty("odd", "no such type", nullptr)), "ok");
    const ZrvConstPropertiesPrototype& reader = prototype;
    struct Case {
        const char* name;
        const char* typeName;
        ZrvPropertyType type;
    };
    for (const Case& c : {Case{"n", "KELINT32", zrvPT_INT32}, Case{"odd", "no such type", zrvPT_Undefined},
                          Case{"N", "", zrvPT_Undefined}, Case{"", "", zrvPT_Undefined}}) {
        EXPECT_EQ(Answer(reader.HasProperty(c.name)), *c.typeName ? "ok" : "error") << c.name;
        EXPECT_STREQ(reader.GetPropertyType(c.name).ConvertToChar(), c.typeName);
        EXPECT_EQ(reader.GetPropertyAsType(c.name), c.type);
        EXPECT_EQ(reader.GetPropertyPrototype(c.name), nullptr);
    }
}

TEST_F(ZrvPrototypeImplTest, DeclaresOnlyWhatAgrees)
{
    EXPECT_EQ(Answer(prototype.AddProperty("", zrvPT_Float, &nested)), "error");
    EXPECT_EQ(Answer(prototype.AddProperty("n", zrvPT_Undefined, &nested)), "error");
    struct Case {
        const char* name;
        const char* type;
        ZrvConstPropertiesPrototype* nested;
        const char* answer;
        KELUINT32 references;
    };
    const Case cases[] = {
        {"", "KELINT32", &nested, "error", 1}, {"n", "", &nested, "error", 1},
        {"n", "KELINT32", nullptr, "ok", 1},   {"n", "KELINT32", nullptr, "ok", 1},
        {"n", "float", nullptr, "error", 1},   {"n", "float", &nested, "error", 1},
        {"n", "KELINT32", &nested, "ok", 2},   {"n", "KELINT32", &nested, "error", 2},
        {"n", "KELINT32", &other, "error", 2}, {"n", "KELINT32", nullptr, "ok", 2},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Answer(prototype.AddProperty(c.name, c.type, c.nested)), c.answer) << c.name << " " << c.type;
        EXPECT_EQ(CountOf(nested), c.references);
        EXPECT_EQ(CountOf(other), 1U);
    }
    EXPECT_EQ(prototype.GetPropertyAsType("n"), zrvPT_INT32);
}

TEST_F(ZrvPrototypeImplTest, EnumeratedFormGoesThroughTheTypeNameForm)
{
    SpyingPrototype spy;
    EXPECT_EQ(Answer(spy.AddProperty("n", zrvPT_FloatList, nullptr)), "ok");
    EXPECT_EQ(spy.declared, "floatList");
}

TEST_F(ZrvPrototypeImplTest, NestedPrototypesAreCounted)
{
    auto* const outer = new ZrvPrototypeImpl;
    outer->AddProperty("with", "float", &nested);
    outer->AddProperty("without", "float", nullptr);
    const ZrvPrototypeImpl& reader = *outer;
    EXPECT_EQ(reader.GetPropertyPrototype("with"), &nested);
    EXPECT_EQ(nested.Release(), 2U);

    ZrvConstPropertiesPrototype* out = &other;
    EXPECT_EQ(Answer(outer->GetPropertyPrototype("absent", out)), "error");
    EXPECT_EQ(out, &other) << "left as it was";
    EXPECT_EQ(Answer(outer->GetPropertyPrototype("with", out)), "ok");
    EXPECT_EQ(out, &nested);
    EXPECT_EQ(nested.Release(), 2U);
    EXPECT_EQ(Answer(outer->GetPropertyPrototype("without", out)), "ok");
    EXPECT_EQ(out, nullptr);

    outer->AddProperty("again", "float", &nested);
    EXPECT_EQ(Answer(outer->RemoveProperty("again")), "ok");
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(Answer(outer->RemoveProperty("again")), "error");
    EXPECT_EQ(Answer(outer->RemoveProperty("")), "error");
    EXPECT_EQ(outer->AddRef(), 2U);
    EXPECT_EQ(outer->Release(), 1U);
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(outer->Release(), 0U);
    EXPECT_EQ(CountOf(nested), 1U);
}

TEST_F(ZrvPrototypeImplTest, ListIsAppendedTo)
{
    KELListValKELUnicodeString list;
    list.Append("before");
    EXPECT_EQ(Answer(prototype.GetListProperties(list)), "ok");
    EXPECT_EQ(list.Size(), 1);
    prototype.AddProperty("n", "float", nullptr);
    prototype.GetListProperties(list);
    ASSERT_EQ(list.Size(), 2);
    EXPECT_EQ(Answer(list[1]) + Answer(list[2]), "'before''n'");
}

} // namespace
