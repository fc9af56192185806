#include "Zorvel.h"

#include "CheckRecorder.h"
#include "CountedObject.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace {

constexpr char kFront[] = "ZrvProperties";
constexpr char kData[] = "ZrvProperties_data";
constexpr char kName[] = "iPropertyName.GetLengthInChar()>0";
constexpr char kAvailable[] = "ZrvProperties::zrvPA_Unavailable!=propertyAvailability";
constexpr char kSetValue[] = "m_value->SetValueFromProperty(iValue)";

using Int = ZrvPropertyValue<KELINT32>;

/// A prototype of a caller's own, which answers nonsense.
class OddPrototype : public ZrvConstPropertiesPrototype {
public:
    ZrvRC GetListProperties(KELListValKELUnicodeString&) const override { return ZrvRC::zrvEC_Error; }
    ZrvRC HasProperty(const KELUnicodeString& iName) const override
    {
        return iName == "absent" ? static_cast<ZrvRC::ErrorCode>(2) : ZrvRC::zrvEC_NothingDone;
    }
    const KELUnicodeString GetPropertyType(const KELUnicodeString& iName) const override { return answers(iName); }
    ZrvPropertyType GetPropertyAsType(const KELUnicodeString&) const override { return zrvPT_Undefined; }
    ZrvConstPropertiesPrototype* GetPropertyPrototype(const KELUnicodeString&) const override
    {
        if (nested) {
            nested->AddRef();
        }
        return nested;
    }

    std::function<KELUnicodeString(const KELUnicodeString&)> answers;
    ZrvConstPropertiesPrototype* nested = nullptr;
};

class ZrvPropertiesTest : public ::testing::Test {
protected:
    ~ZrvPropertiesTest() override { EXPECT_EQ(reports.Take(), Nothing()); }

    void ExpectOk(ZrvRC iRc)
    {
        EXPECT_TRUE(iRc == ZrvRC::zrvEC_OK);
        EXPECT_STREQ(iRc.Dump(), "");
        EXPECT_EQ(reports.Take(), Nothing());
    }
    void ExpectError(ZrvRC iRc, const std::vector<Report>& iReports, const char* iTrace = "")
    {
        EXPECT_TRUE(iRc == ZrvRC::zrvEC_Error);
        EXPECT_STREQ(iRc.Dump(), iTrace);
        EXPECT_EQ(reports.Take(), iReports);
    }
    void ExpectNone(bool iIsNone, const std::vector<Report>& iReports)
    {
        EXPECT_TRUE(iIsNone);
        EXPECT_EQ(reports.Take(), iReports);
    }

    CheckRecorder reports;
    ZrvPrototypeImpl nested;
};

TEST_F(ZrvPropertiesTest, ReportsWhatItRefuses)
{
    const std::vector<Report> noName = Condition(kName, kFront);
    const std::vector<Report> noNameInData = Condition(kName, kData);
    const ZrvPropertyValueBase bare;
    ZrvPrototypeImpl prototype;
    ZrvProperties bound(&prototype);
    ZrvProperties set;
    set.AddProperty("n", "KELINT32", nullptr);

    ExpectError(set.AddProperty("", "", nullptr), noName);
    ExpectError(set.AddProperty("n", "", nullptr), Condition("iPropertyType.GetLengthInChar()>0", kFront));
    ExpectError(set.AddProperty(""), noName);
    ExpectError(set.AddProperty("n"), Pointer("m_pPrototype", kData));
    ExpectError(bound.AddProperty("n"), Condition(kAvailable, kData));
    ExpectError(bound.AddProperty("n", "KELINT32", nullptr), Condition("!m_pPrototype", kData),
                "AddProperty: Wrong call, should not have prototype.");
    ExpectError(set.SetProperty("", bare), noName);
    ExpectError(set.SetProperty("n", bare), Condition("iValue.GetType().GetLengthInChar()>0", kFront));
    ExpectError(set.SetProperty("n", ZrvPropertyValue<float>(1)), Condition(kSetValue, "ZrvProperty"));
    ExpectNone(set.GetProperty("") == nullptr, noName);
    ExpectNone(set.GetPropertyParameters("") == nullptr, noName);
    ExpectNone(set.GetPropertyParameters("absent") == nullptr, Pointer("ppProperty", kData));
    ExpectNone(set.GetAvailability("") == ZrvProperties::zrvPA_Unavailable, noNameInData);
    ExpectNone(set.GetPropertyType("").GetLengthInChar() == 0, noNameInData);
}

TEST_F(ZrvPropertiesTest, PrototypeIsHandedOutOnlyWhereNoneIs)
{
    ZrvPrototypeImpl prototype;
    ZrvConstPropertiesPrototype* out = &nested;
    ExpectError(ZrvProperties(&prototype).GetPrototype(out), Condition("!ioPrototype", kFront));
    EXPECT_EQ(out, &nested);
    EXPECT_EQ(CountOf(prototype), 1U);
}

TEST_F(ZrvPropertiesTest, DebugServicesSayNothing)
{
    EXPECT_STREQ(ZrvDebugServices::GetTracesFromProperties(ZrvProperties()).ConvertToChar(), "");
    ZrvDebugServices services;
    EXPECT_EQ(&(services = ZrvDebugServices()), &services);
    EXPECT_EQ(&(services = std::as_const(services)), &services);
}

/// A set that keeps its names to itself.
class SecretiveSet : public ZrvProperties {
public:
    using ZrvProperties::GetListProperties;
    int GetListProperties(KELListValKELUnicodeString&) const override { return 0; }
};

TEST_F(ZrvPropertiesTest, CopyAsksADerivedSetForItsNames)
{
    SecretiveSet source;
    source.AddProperty("n", "KELINT32", nullptr);
    ZrvProperties target;
    ExpectOk(target.SetFromProperties(source));
    EXPECT_EQ(target.HasProperty("n"), 0);
}

TEST_F(ZrvPropertiesTest, CopyStopsAtAValueThatTheDeclarationRefuses)
{
    // The name is new to the target, so that the types meet only when the value is set.
    ZrvPrototypeImpl prototype;
    prototype.AddProperty("n", zrvPT_Float, nullptr);
    ZrvProperties source;
    source.AddProperty("n", "KELINT32", nullptr);
    ZrvProperties target(&prototype);
    ExpectError(target.SetFromProperties(source),
                {{kelCF_Condition, kSetValue, "ZrvProperty"},
                 {kelCF_Condition, "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )", kData}});
    EXPECT_EQ(target.HasProperty("n"), 1) << "added before its value was refused";
}

TEST_F(ZrvPropertiesTest, CallersPrototypesMayAnswerNonsense)
{
    OddPrototype odd;
    odd.nested = &nested;
    odd.answers = [](const KELUnicodeString& iName) { return iName == "int" ? KELUnicodeString("KELINT32") : iName; };
    ZrvProperties set(&odd);
    ExpectOk(set.AddProperty("int"));
    EXPECT_EQ(CountOf(nested), 2U);
    ExpectError(set.AddProperty("x"), Nothing());
    ExpectError(set.AddProperty("absent"), Condition(kAvailable, kData));
    EXPECT_EQ(CountOf(nested), 2U) << "given back when the property could not be made";
    odd.answers = [](const KELUnicodeString&) { return KELUnicodeString(); };
    ExpectError(set.AddProperty("y"), Condition("propertyType.GetLengthInChar()>0", kData));

    // A copy into such a set hands the refusal on.
    ZrvProperties source;
    source.AddProperty("y", "KELINT32", nullptr);
    ExpectError(set.SetFromProperties(source), {{kelCF_Condition, "propertyType.GetLengthInChar()>0", kData},
                                                {kelCF_Condition, "!(rc.IsError())", kData}});
    odd.answers = [&set](const KELUnicodeString& iName) {
        set.AddProperty("int");
        return set.HasProperty(iName) ? KELUnicodeString() : KELUnicodeString("float");
    };
    ExpectOk(set.AddProperty("called back"));
}

TEST_F(ZrvPropertiesTest, CopiedPrototypesStartWithAReferenceOfTheirOwn)
{
    OddPrototype odd;
    odd.AddRef();
    OddPrototype copy(odd);
    EXPECT_EQ(CountOf(copy), 1U);
    odd.Release();
}

TEST_F(ZrvPropertiesTest, NamesMayBeLongAndIllFormed)
{
    const std::string longName(100000, 'n');
    ZrvProperties set;
    for (const KELUnicodeString& name : {KELUnicodeString(longName.c_str()), KELUnicodeString("\xFF"),
                                         KELUnicodeString("\xC3"), KELUnicodeString("\xF0\x9F\x98\x80")}) {
        ExpectOk(set.AddProperty(name, "KELUnicodeString", nullptr));
        ExpectOk(set.SetProperty(name, ZrvPropertyValue<KELUnicodeString>(name)));
    }
    EXPECT_TRUE(set.GetProperty("\xFF")->IsPurelyIdenticalTo(ZrvPropertyValue<KELUnicodeString>("\xFF")));
    EXPECT_EQ(set.HasProperty("\xFE"), 0);
    EXPECT_EQ(set.HasProperty((longName + "n").c_str()), 0);
    EXPECT_EQ(set.HasProperty(longName.c_str()), 1);
}

} // namespace
