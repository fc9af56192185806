#include "Zorvel.h"

#include "CheckRecorder.h"
#include "CountedObject.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace {

constexpr char kFront[] = "ZrvProperties";
constexpr char kData[] = "ZrvProperties_data";
constexpr char kName[] = "iPropertyName.GetLengthInChar()>0";
constexpr char kAvailable[] = "ZrvProperties::zrvPA_Unavailable!=propertyAvailability";
constexpr char kSetValue[] = "m_value->SetValueFromProperty(iValue)";

using Int = ZrvPropertyValue<KELINT32>;
using Float = ZrvPropertyValue<float>;

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
    ZrvPropertiesTest()
    {
        prototype.AddProperty("int", zrvPT_INT32, nullptr);
        prototype.AddProperty("float", zrvPT_Float, &nested);
        prototype.AddProperty("string", zrvPT_UnicodeString, nullptr);
        prototype.AddProperty("odd", "no such type", &nested);
    }
    ~ZrvPropertiesTest() override { EXPECT_EQ(reports.Take(), Nothing()); }

    void Expect(ZrvRC iRc, ZrvRC::ErrorCode iCode, const char* iTrace, const std::vector<Report>& iReports)
    {
        EXPECT_EQ(iRc.GetRC(), iCode);
        EXPECT_STREQ(iRc.Dump(), iTrace);
        EXPECT_EQ(reports.Take(), iReports);
    }
    void ExpectOk(ZrvRC iRc) { Expect(iRc, ZrvRC::zrvEC_OK, "", Nothing()); }
    void ExpectError(ZrvRC iRc, const std::vector<Report>& iReports = Nothing(), const char* iTrace = "")
    {
        Expect(iRc, ZrvRC::zrvEC_Error, iTrace, iReports);
    }

    static std::unique_ptr<ZrvProperties> FreeSet(std::initializer_list<const char*> iInts)
    {
        auto set = std::make_unique<ZrvProperties>();
        for (const char* name : iInts) {
            set->AddProperty(name, "KELINT32", nullptr);
        }
        return set;
    }
    static KELINT32 IntOf(const ZrvProperties& iSet, const char* iName)
    {
        const ZrvPropertyValueBase* value = iSet.GetProperty(iName);
        return value ? static_cast<const Int*>(value)->GetValue() : -1;
    }

    CheckRecorder reports;
    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl prototype;
};

TEST_F(ZrvPropertiesTest, BoundSetHoldsWhatIsDeclared)
{
    ZrvProperties set(&prototype);
    EXPECT_EQ(set.GetAvailability("int"), ZrvProperties::zrvPA_Available);
    EXPECT_EQ(set.GetAvailability("other"), ZrvProperties::zrvPA_Unavailable);
    ExpectOk(set.AddProperty("int"));
    EXPECT_EQ(set.GetAvailability("int"), ZrvProperties::zrvPA_Instantiated);
    ExpectOk(set.SetProperty("int", Int(5)));
    ExpectOk(set.AddProperty("int"));
    EXPECT_EQ(IntOf(set, "int"), 5) << "adding again changes nothing";

    ExpectError(set.AddProperty("other"), Condition(kAvailable, kData));
    ExpectError(set.AddProperty("odd"));
    EXPECT_EQ(CountOf(nested), 3U) << "held by the two declarations alone";
    ExpectError(set.AddProperty("int", "KELINT32", nullptr), Condition("!m_pPrototype", kData),
                "AddProperty: Wrong call, should not have prototype.");
    EXPECT_EQ(set.HasProperty("odd"), 0);

    ExpectOk(set.AddProperty("float"));
    EXPECT_EQ(CountOf(nested), 4U);
}

TEST_F(ZrvPropertiesTest, FreeSetHoldsWhatIsGiven)
{
    ZrvProperties set;
    EXPECT_EQ(set.GetAvailability("any"), ZrvProperties::zrvPA_Available);
    ExpectOk(set.AddProperty("any", "KELINT32", &nested));
    EXPECT_EQ(CountOf(nested), 4U);
    ExpectOk(set.AddProperty("any", "float", &nested));
    EXPECT_STREQ(set.GetPropertyType("any").ConvertToChar(), "KELINT32");
    EXPECT_EQ(CountOf(nested), 4U);
    ExpectError(set.AddProperty("any2"), Pointer("m_pPrototype", kData));
    for (const char* type : {"int", "x"}) {
        ExpectError(set.AddProperty("any2", type, &nested), Nothing(), "AddProperty: property not instanciated");
    }
    EXPECT_EQ(set.HasProperty("any2"), 0);
    EXPECT_EQ(CountOf(nested), 4U);
}

TEST_F(ZrvPropertiesTest, ArgumentsAreCheckedInOrder)
{
    ZrvProperties set;
    const std::vector<Report> noName = Condition(kName, kFront);
    const std::vector<Report> noNameInData = Condition(kName, kData);
    const ZrvPropertyValueBase bare;

    ExpectError(set.AddProperty("", "", nullptr), noName);
    ExpectError(set.AddProperty("n", "", nullptr), Condition("iPropertyType.GetLengthInChar()>0", kFront));
    ExpectError(set.AddProperty(""), noName);
    ExpectError(set.SetProperty("", bare), noName);
    ExpectError(set.SetProperty("n", bare), Condition("iValue.GetType().GetLengthInChar()>0", kFront));
    ExpectError(set.SetProperty("n", Int(1)));
    EXPECT_EQ(set.GetProperty(""), nullptr);
    EXPECT_EQ(reports.Take(), noName);
    EXPECT_EQ(set.GetProperty("n"), nullptr);
    EXPECT_EQ(set.GetPropertyParameters(""), nullptr);
    EXPECT_EQ(reports.Take(), noName);
    EXPECT_EQ(set.GetPropertyParameters("n"), nullptr);
    EXPECT_EQ(reports.Take(), Pointer("ppProperty", kData));
    EXPECT_EQ(set.HasProperty(""), 0);
    EXPECT_EQ(reports.Take(), Nothing());
    EXPECT_EQ(set.GetAvailability(""), ZrvProperties::zrvPA_Unavailable);
    EXPECT_EQ(reports.Take(), noNameInData);
    EXPECT_EQ(set.GetPropertyType("").GetLengthInChar(), 0);
    EXPECT_EQ(reports.Take(), noNameInData);
    EXPECT_EQ(set.GetPropertyType("n").GetLengthInChar(), 0);

    set.AddProperty("n", "KELINT32", nullptr);
    EXPECT_EQ(set.GetPropertyParameters("n"), nullptr);
    ExpectError(set.SetProperty("n", Float(1)), Condition(kSetValue, "ZrvProperty"));
    EXPECT_EQ(IntOf(set, "n"), 0);
}

TEST_F(ZrvPropertiesTest, PrototypeIsHandedOutWithAReference)
{
    ZrvProperties bound(&prototype);
    ZrvConstPropertiesPrototype* out = nullptr;
    ExpectOk(ZrvProperties().GetPrototype(out));
    EXPECT_EQ(out, nullptr);
    ExpectOk(bound.GetPrototype(out));
    EXPECT_EQ(out, &prototype);
    EXPECT_EQ(CountOf(prototype), 3U);
    out->Release();
    out = &nested;
    ExpectError(bound.GetPrototype(out), Condition("!ioPrototype", kFront));
    EXPECT_EQ(out, &nested);
    EXPECT_EQ(CountOf(prototype), 2U);
}

TEST_F(ZrvPropertiesTest, ListsAreAppendedToInOneOrder)
{
    const auto set = FreeSet({"a", "b", "c"});
    KELListValKELUnicodeString list;
    list.Append("before");
    KELSysTSListOfUnicodeString tsList;
    EXPECT_EQ(set->GetListProperties(list), 3);
    EXPECT_EQ(set->GetListProperties(tsList), 3);
    ASSERT_EQ(list.Size(), 4);
    ASSERT_EQ(tsList.Size(), 3);
    EXPECT_STREQ(list[1].ConvertToChar(), "before");
    for (int i = 1; i <= 3; ++i) {
        EXPECT_STREQ(list[i + 1].ConvertToChar(), tsList[i].ConvertToChar());
        EXPECT_EQ(set->HasProperty(list[i + 1]), 1);
    }
    EXPECT_STREQ(ZrvDebugServices::GetTracesFromProperties(*set).ConvertToChar(), "");
    ZrvDebugServices services;
    EXPECT_EQ(&(services = ZrvDebugServices()), &services);
    EXPECT_EQ(&(services = std::as_const(services)), &services);
}

TEST_F(ZrvPropertiesTest, CopyAddsAssignsAndKeeps)
{
    const auto source = FreeSet({"a", "b"});
    source->SetProperty("a", Int(1));
    source->SetProperty("b", Int(2));
    const auto target = FreeSet({"b", "c"});
    target->SetProperty("c", Int(3));
    const ZrvPropertyValueBase* held = target->GetProperty("b");
    ExpectOk(target->SetFromProperties(*source));
    EXPECT_EQ(IntOf(*target, "a"), 1);
    EXPECT_EQ(IntOf(*target, "b"), 2);
    EXPECT_EQ(IntOf(*target, "c"), 3);
    EXPECT_EQ(target->GetProperty("b"), held) << "assigned in place";
    Expect(target->SetFromProperties(*target), ZrvRC::zrvEC_NothingDone, "", Nothing());
    ExpectOk(target->SetFromProperties(ZrvProperties()));
    ExpectOk(ZrvProperties().SetFromProperties(ZrvProperties()));
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

TEST_F(ZrvPropertiesTest, CopyIsRefusedBeforeAnythingChanges)
{
    const auto undeclared = FreeSet({"int", "other"});
    undeclared->SetProperty("int", Int(1));
    ZrvProperties bound(&prototype);
    ExpectError(bound.SetFromProperties(*undeclared));
    EXPECT_EQ(bound.HasProperty("int"), 0);

    ZrvProperties target;
    target.AddProperty("other", "float", nullptr);
    ExpectError(target.SetFromProperties(*undeclared));
    EXPECT_EQ(target.HasProperty("int"), 0);
    EXPECT_STREQ(target.GetPropertyType("other").ConvertToChar(), "float");
}

TEST_F(ZrvPropertiesTest, CopyStopsAtAValueThatTheDeclarationRefuses)
{
    // The names are new to the target, so that the types meet only when the values are set.
    const auto source = FreeSet({"int", "float", "string"});
    source->SetProperty("int", Int(7));
    ZrvProperties target(&prototype);
    ZrvRC rc = target.SetFromProperties(*source);
    EXPECT_TRUE(rc == ZrvRC::zrvEC_Error);
    EXPECT_STREQ(rc.Dump(), "");
    EXPECT_EQ(reports.Take(),
              (std::vector<Report>{
                  {kelCF_Condition, kSetValue, "ZrvProperty"},
                  {kelCF_Condition, "!( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() )", kData}}));
    EXPECT_EQ(IntOf(target, "int"), 7) << "copied before the refused one";
    ASSERT_EQ(target.HasProperty("float"), 1) << "added before its value was refused";
    EXPECT_TRUE(target.GetProperty("float")->IsPurelyIdenticalTo(Float(0)));
    EXPECT_EQ(target.HasProperty("string"), 0);
}

TEST_F(ZrvPropertiesTest, AssignmentMakesTheOtherSet)
{
    ZrvProperties bound(&prototype);
    bound.AddProperty("int");
    bound.SetProperty("int", Int(4));
    const auto set = FreeSet({"old"});
    *set = bound;
    EXPECT_EQ(CountOf(prototype), 3U);
    EXPECT_EQ(set->HasProperty("old"), 0);
    EXPECT_EQ(IntOf(*set, "int"), 4);
    EXPECT_EQ(set->GetAvailability("float"), ZrvProperties::zrvPA_Available);

    const ZrvProperties& self = *set;
    *set = self;
    EXPECT_EQ(IntOf(*set, "int"), 4);
    *set = ZrvProperties();
    EXPECT_EQ(CountOf(prototype), 2U);
    ExpectOk(set->AddProperty("free", "float", nullptr));
}

TEST_F(ZrvPropertiesTest, CopyConstructionIsDeep)
{
    CountedObject object;
    {
        ZrvProperties set;
        set.AddProperty("object", "KELSysTSBaseUnknownPtr", &nested);
        set.SetProperty("object", ZrvPropertyValue<KELSysTSBaseUnknown*>(&object));
        ZrvProperties copy(set);
        EXPECT_EQ(CountOf(object), 3U);
        EXPECT_EQ(CountOf(nested), 5U);
        copy.SetProperty("object", ZrvPropertyValue<KELSysTSBaseUnknown*>(nullptr));
        EXPECT_EQ(CountOf(object), 2U);
        EXPECT_NE(copy.GetProperty("object"), set.GetProperty("object"));
    }
    EXPECT_EQ(CountOf(object), 1U);
    EXPECT_EQ(CountOf(nested), 3U);
}

TEST_F(ZrvPropertiesTest, CallersPrototypesMayAnswerNonsense)
{
    OddPrototype odd;
    odd.nested = &nested;
    odd.answers = [](const KELUnicodeString& iName) { return iName == "int" ? KELUnicodeString("KELINT32") : iName; };
    ZrvProperties set(&odd);
    ExpectOk(set.AddProperty("int"));
    EXPECT_EQ(CountOf(nested), 4U);
    ExpectError(set.AddProperty("x"));
    ExpectError(set.AddProperty("absent"), Condition(kAvailable, kData));
    EXPECT_EQ(CountOf(nested), 4U) << "given back when the property could not be made";
    odd.answers = [](const KELUnicodeString&) { return KELUnicodeString(); };
    ExpectError(set.AddProperty("y"), Condition("propertyType.GetLengthInChar()>0", kData));

    // A copy into such a set hands the refusal on.
    ExpectError(set.SetFromProperties(*FreeSet({"y"})), {{kelCF_Condition, "propertyType.GetLengthInChar()>0", kData},
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
