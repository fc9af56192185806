#include "Zorvel.h"

#include "CountedObject.h"
#include "ReportingTest.h"

#include <functional>
#include <utility>

namespace {

const std::string g_noName = " [condition iPropertyName.GetLengthInChar()>0 in ZrvProperties]";
const std::string g_noNameInData = " [condition iPropertyName.GetLengthInChar()>0 in ZrvProperties_data]";
const std::string g_unavailable =
    " [condition ZrvProperties::zrvPA_Unavailable!=propertyAvailability in ZrvProperties_data]";
const std::string g_noType = " [condition propertyType.GetLengthInChar()>0 in ZrvProperties_data]";
const std::string g_otherType = " [condition m_value->SetValueFromProperty(iValue) in ZrvProperty]";

using Int = ZrvPropertyValue<KELINT32>;

class ZrvPropertiesTest : public ReportingTest {
protected:
    ZrvPropertiesTest()
    {
        prototype.AddProperty("int", zrvPT_INT32, nullptr);
        prototype.AddProperty("float", zrvPT_Float, nullptr);
    }

    /// A free set of integers.
    static ZrvProperties Ints(std::initializer_list<std::pair<const char*, KELINT32>> iValues)
    {
        ZrvProperties set;
        for (const auto& [name, value] : iValues) {
            set.AddProperty(name, "KELINT32", nullptr);
            set.SetProperty(name, Int(value));
        }
        return set;
    }

    static bool Holds(const ZrvProperties& iSet, const char* iName, const ZrvPropertyValueBase& iValue)
    {
        const ZrvPropertyValueBase* const held = iSet.GetProperty(iName);
        return held && held->IsPurelyIdenticalTo(iValue);
    }

    ZrvPrototypeImpl nested;
    ZrvPrototypeImpl prototype;
};

TEST_F(ZrvPropertiesTest, ArgumentsAreCheckedInOrder)
{
    ZrvProperties set = Ints({{"n", 0}});
    const ZrvPropertyValueBase bare;
    EXPECT_EQ(Answer(set.AddProperty("", "", nullptr)), "error" + g_noName);
    EXPECT_EQ(Answer(set.AddProperty("n", "", nullptr)),
              "error [condition iPropertyType.GetLengthInChar()>0 in ZrvProperties]");
    EXPECT_EQ(Answer(set.AddProperty("")), "error" + g_noName);
    EXPECT_EQ(Answer(set.AddProperty("n")), "error [pointer m_pPrototype in ZrvProperties_data]");
    ZrvProperties bound(&prototype);
    EXPECT_EQ(Answer(bound.AddProperty("absent")), "error" + g_unavailable);
    EXPECT_EQ(Answer(bound.AddProperty("int", "KELINT32", nullptr)),
              "error: AddProperty: Wrong call, should not have prototype. [condition !m_pPrototype in "
              "ZrvProperties_data]");
    EXPECT_EQ(Answer(set.SetProperty("", bare)), "error" + g_noName);
    EXPECT_EQ(Answer(set.SetProperty("n", bare)),
              "error [condition iValue.GetType().GetLengthInChar()>0 in ZrvProperties]");
    EXPECT_EQ(Answer(set.SetProperty("n", ZrvPropertyValue<float>(1))), "error" + g_otherType);
    EXPECT_EQ(Answer(set.SetProperty("absent", Int(1))), "error");
    EXPECT_EQ(Answer(set.GetProperty("")), "null" + g_noName);
    EXPECT_EQ(Answer(set.GetProperty("absent")), "null");
    EXPECT_EQ(Answer(set.GetPropertyParameters("")), "null" + g_noName);
    EXPECT_EQ(Answer(set.GetPropertyParameters("absent")), "null [pointer ppProperty in ZrvProperties_data]");
    EXPECT_EQ(Answer(set.GetPropertyParameters("n")), "null");
    EXPECT_EQ(Answer(set.HasProperty("")), "0");
    EXPECT_EQ(Answer<int>(set.GetAvailability("")), "0" + g_noNameInData);
    EXPECT_EQ(Answer(set.GetPropertyType("")), "''" + g_noNameInData);
    EXPECT_EQ(Answer(set.GetPropertyType("absent")), "''");
    EXPECT_TRUE(Holds(set, "n", Int(0)));
}

TEST_F(ZrvPropertiesTest, PrototypeIsHandedOutOnlyWhereNoneIs)
{
    const ZrvProperties bound(&prototype);
    ZrvConstPropertiesPrototype* out = &nested;
    EXPECT_EQ(Answer(bound.GetPrototype(out)), "error [condition !ioPrototype in ZrvProperties]");
    EXPECT_EQ(out, &nested);
    EXPECT_EQ(CountOf(prototype), 2U);
}

TEST_F(ZrvPropertiesTest, DebugServicesSayNothing)
{
    EXPECT_EQ(Answer(ZrvDebugServices::GetTracesFromProperties(Ints({{"a", 1}}))), "''");
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

TEST_F(ZrvPropertiesTest, CopyAssignsInPlaceWhatTheSourceNames)
{
    ZrvProperties target = Ints({{"a", 1}});
    const ZrvPropertyValueBase* const held = target.GetProperty("a");
    EXPECT_EQ(Answer(target.SetFromProperties(Ints({{"a", 2}}))), "ok");
    EXPECT_TRUE(Holds(target, "a", Int(2)));
    EXPECT_EQ(target.GetProperty("a"), held);
    SecretiveSet secretive;
    secretive.AddProperty("b", "KELINT32", nullptr);
    EXPECT_EQ(Answer(target.SetFromProperties(secretive)), "ok");
    EXPECT_EQ(target.HasProperty("b"), 0);
}

TEST_F(ZrvPropertiesTest, CopyStopsAtAValueThatTheDeclarationRefuses)
{
    // The names are new to the target, so that the types meet only when the values are set.
    ZrvProperties target(&prototype);
    EXPECT_EQ(Answer(target.SetFromProperties(Ints({{"int", 7}, {"float", 8}}))),
              "error" + g_otherType +
                  " [condition !( SetProperty_Int(propertyName_in,*(m_pValue_in)).IsError() ) in ZrvProperties_data]");
    EXPECT_TRUE(Holds(target, "int", Int(7))) << "what was copied before";
    EXPECT_TRUE(Holds(target, "float", ZrvPropertyValue<float>(0))) << "the refused one's default";
}

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
        nested->AddRef();
        return nested;
    }

    std::function<KELUnicodeString(const KELUnicodeString&)> answers;
    ZrvConstPropertiesPrototype* nested = nullptr;
};

TEST_F(ZrvPropertiesTest, CallersPrototypesMayAnswerNonsense)
{
    OddPrototype odd;
    odd.nested = &nested;
    odd.answers = [](const KELUnicodeString& iName) { return iName == "int" ? "KELINT32" : iName; };
    ZrvProperties set(&odd);
    EXPECT_EQ(Answer(set.AddProperty("int")), "ok");
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(Answer(set.AddProperty("x")), "error");
    EXPECT_EQ(CountOf(nested), 2U) << "given back when the property could not be made";
    EXPECT_EQ(Answer(set.AddProperty("absent")), "error" + g_unavailable);
    odd.answers = [](const KELUnicodeString&) { return ""; };
    EXPECT_EQ(Answer(set.AddProperty("y")), "error" + g_noType);
    EXPECT_EQ(Answer(set.SetFromProperties(Ints({{"y", 1}}))),
              "error" + g_noType + " [condition !(rc.IsError()) in ZrvProperties_data]");
    odd.answers = [&set](const KELUnicodeString& iName) {
        set.AddProperty("int");
        return set.HasProperty(iName) ? "" : "float";
    };
    EXPECT_EQ(Answer(set.AddProperty("called back")), "ok");
    EXPECT_EQ(CountOf(odd), 2U);
    EXPECT_EQ(OddPrototype(odd).AddRef(), 2U) << "a copy starts with a reference of its own";
}

} // namespace
