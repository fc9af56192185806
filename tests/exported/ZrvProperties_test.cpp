#include "Zorvel.h"

#include "CountedObject.h"
#include "ReportingTest.h"

#include <functional>
#include <utility>

namespace {

const std::string g_noName = " [condition iPropertyName.GetLengthInChar()>0 in ZrvProperties]";
const std::string g_noType = " [condition propertyType.GetLengthInChar()>0 in ZrvProperties_data]";

using ZrvPropertiesTest = ReportingTest;

TEST_F(ZrvPropertiesTest, DebugServicesSayNothing)
{
    ZrvDebugServices services;
    EXPECT_EQ(Answer(services.GetTracesFromProperties(ZrvProperties())), "''");
    EXPECT_EQ(&(services = ZrvDebugServices()), &services);
    EXPECT_EQ(&(services = std::as_const(services)), &services);
}

TEST_F(ZrvPropertiesTest, EachReportNamesTheLineOfItsOperation)
{
    ZrvProperties set;
    EXPECT_EQ(Answer(set.AddProperty("", "float", nullptr)), "error" + g_noName);
    EXPECT_EQ(Answer(set.AddProperty("")), "error" + g_noName);
    EXPECT_EQ(Answer(set.SetProperty("", ZrvPropertyValueBase())), "error" + g_noName);
    EXPECT_EQ(Answer(set.GetProperty("")), "null" + g_noName);
    EXPECT_EQ(Answer(set.GetPropertyParameters("")), "null" + g_noName);
    EXPECT_EQ(reports.Lines(), 5U);
}

/// A set that keeps its names to itself when asked to.
class SecretiveSet : public ZrvProperties {
public:
    using ZrvProperties::GetListProperties;
    int GetListProperties(KELListValKELUnicodeString& ioNames) const override
    {
        return isSecretive ? 0 : ZrvProperties::GetListProperties(ioNames);
    }
    bool isSecretive = true;
};

TEST_F(ZrvPropertiesTest, CopyAssignsInPlaceWhatTheSourceNames)
{
    SecretiveSet source;
    source.AddProperty("a", "float", nullptr);
    ZrvProperties target(source);
    const ZrvPropertyValueBase* const held = target.GetProperty("a");
    const ZrvPropertyValue<float> value(1.5F);
    source.SetProperty("a", value);
    EXPECT_EQ(Answer(target.SetFromProperties(source)), "ok");
    EXPECT_FALSE(held->IsPurelyIdenticalTo(value));
    source.isSecretive = false;
    EXPECT_EQ(Answer(target.SetFromProperties(source)), "ok");
    EXPECT_TRUE(held->IsPurelyIdenticalTo(value) && held == target.GetProperty("a"));
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
    ZrvPrototypeImpl nested;
    OddPrototype odd;
    odd.nested = &nested;
    odd.answers = [](const KELUnicodeString& iName) { return iName == "int" ? "KELINT32" : iName; };
    ZrvProperties set(&odd);
    EXPECT_EQ(Answer(set.AddProperty("int")), "ok");
    EXPECT_EQ(CountOf(nested), 2U);
    EXPECT_EQ(Answer(set.AddProperty("x")), "error");
    EXPECT_EQ(CountOf(nested), 2U) << "given back when the property could not be made";
    EXPECT_EQ(Answer(set.AddProperty("absent")),
              "error [condition ZrvProperties::zrvPA_Unavailable!=propertyAvailability in ZrvProperties_data]");
    odd.answers = [](const KELUnicodeString&) { return ""; };
    EXPECT_EQ(Answer(set.AddProperty("y")), "error" + g_noType);
    ZrvProperties source;
    source.AddProperty("y", "float", nullptr);
    EXPECT_EQ(Answer(set.SetFromProperties(source)),
              "error" + g_noType + " [condition !(rc.IsError()) in ZrvProperties_data]");
    odd.answers = [&set](const KELUnicodeString& iName) {
        set.AddProperty("int");
        return set.HasProperty(iName) ? "" : "float";
    };
    EXPECT_EQ(Answer(set.AddProperty("called back")), "ok");
    EXPECT_EQ(CountOf(odd), 2U);
    EXPECT_EQ(OddPrototype(odd).AddRef(), 2U) << "a copy starts with a reference of its own";
}

TEST_F(ZrvPropertiesTest, WhatASetGivesUpMayCallBackIntoIt)
{
    ZrvProperties source;
    source.AddProperty("n", "KELINT32", nullptr);
    int gone = 0;
    ZrvPrototypeImpl nested;
    {
        ZrvProperties set;
        const auto fill = [&] {
            for (const char* name : {"a", "b", "c"}) {
                set.AddProperty(name, "KELSysTSBaseUnknownPtr", &nested);
                const auto meddler = KELReference<KELSysTSBaseUnknown>::Adopt(new CountedObject([&] {
                    ++gone;
                    set.AddProperty("late", "KELINT32", nullptr);
                    set = source;
                }));
                set.SetProperty(name, ZrvPropertyValue<KELSysTSBaseUnknown*>(meddler.Get()));
            }
        };
        fill();
        set = source;
        EXPECT_TRUE(gone == 3 && set.HasProperty("n") && !set.HasProperty("a") && !set.HasProperty("late"));
        EXPECT_EQ(CountOf(nested), 1U);
        fill();
    }
    EXPECT_EQ(gone, 6);
    EXPECT_EQ(CountOf(nested), 1U);
}

} // namespace
