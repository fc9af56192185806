#include "ZrvPrototypeImpl.h"

#include "ReportingTest.h"

namespace {

using ZrvPrototypeImplTest = ReportingTest;

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

} // namespace
