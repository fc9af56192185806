#include "ZrvPrototypeImpl.h"

#include "ReportingTest.h"
#include "ZrvProperties.h"

namespace {

using ZrvPrototypeImplTest = ReportingTest;

/// A builder that declares every name as a float, says that it did not, and answers that it is an integer.
class WilfulPrototype : public ZrvPrototypeImpl {
public:
    using ZrvPrototypeImpl::AddProperty;
    ZrvRC AddProperty(const KELUnicodeString& iName, const KELUnicodeString& iType,
                      ZrvConstPropertiesPrototype* iNested) override
    {
        static_cast<void>(ZrvPrototypeImpl::AddProperty(iName, "float", iNested));
        return ZrvRC(ZrvRC::zrvEC_Error, iType);
    }
    const KELUnicodeString GetPropertyType(const KELUnicodeString&) const override { return "KELINT32"; }
};

TEST_F(ZrvPrototypeImplTest, DerivedPrototypesAreAskedThroughTheirOwnOperations)
{
    WilfulPrototype wilful;
    EXPECT_EQ(Answer(wilful.AddProperty("n", zrvPT_FloatList, nullptr)), "error: floatList");
    ZrvProperties set(&wilful);
    EXPECT_EQ(Answer(set.AddProperty("n")), "ok");
    EXPECT_EQ(Answer(set.GetPropertyType("n")), "'KELINT32'");
}

} // namespace
