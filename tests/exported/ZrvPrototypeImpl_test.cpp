#include "ZrvPrototypeImpl.h"

#include "CountedObject.h"
#include "ReportingTest.h"

namespace {

class ZrvPrototypeImplTest : public ReportingTest {
protected:
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl other;
    ZrvPrototypeImpl prototype;
};

/// A builder that refuses every declaration by type name.
class RefusingPrototype : public ZrvPrototypeImpl {
public:
    using ZrvPrototypeImpl::AddProperty;
    ZrvRC AddProperty(const KELUnicodeString&, const KELUnicodeString& iType, ZrvConstPropertiesPrototype*) override
    {
        return ZrvRC(ZrvRC::zrvEC_Error, iType);
    }
};

TEST_F(ZrvPrototypeImplTest, EnumeratedFormGoesThroughTheTypeNameForm)
{
    EXPECT_EQ(Answer(RefusingPrototype().AddProperty("n", zrvPT_FloatList, nullptr)), "error: floatList");
}

TEST_F(ZrvPrototypeImplTest, HandsNestedPrototypesOut)
{
    prototype.AddProperty("with", "float", &nested);
    prototype.AddProperty("without", "float", nullptr);
    ZrvConstPropertiesPrototype* out = &other;
    EXPECT_EQ(Answer(prototype.GetPropertyPrototype("absent", out)), "error");
    EXPECT_EQ(out, &other) << "left as it was";
    EXPECT_EQ(Answer(prototype.GetPropertyPrototype("with", out)), "ok");
    EXPECT_EQ(out, &nested);
    EXPECT_EQ(nested.Release(), 2U) << "a reference for the caller";
    EXPECT_EQ(Answer(prototype.GetPropertyPrototype("without", out)), "ok");
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(CountOf(other), 1U);
}

TEST_F(ZrvPrototypeImplTest, ListIsAppendedTo)
{
    KELListValKELUnicodeString list;
    list.Append("before");
    prototype.AddProperty("n", "no such type", nullptr);
    EXPECT_EQ(Answer(prototype.IsValid()), "ok");
    EXPECT_EQ(Answer(prototype.GetListProperties(list)), "ok");
    ASSERT_EQ(list.Size(), 2);
    EXPECT_EQ(Answer(list[1]) + Answer(list[2]), "'before''n'");
}

} // namespace
