#include "Zorvel.h"

#include "CountedObject.h"
#include "ReportingTest.h"

#include <functional>
#include <memory>
#include <set>

namespace {

using Object = ZrvPropertyValue<KELSysTSBaseUnknown*>;
using ZrvPropertiesTest = ReportingTest;

TEST_F(ZrvPropertiesTest, EachReportNamesTheLineOfItsOperation)
{
    ZrvProperties set;
    ZrvConstPropertiesPrototype* none = nullptr;
    const std::function<void()> operations[] = {[&] { set.AddProperty("", "float", nullptr); },
                                                [&] { set.AddProperty("n", "", nullptr); },
                                                [&] { set.AddProperty(""); },
                                                [&] { set.SetProperty("", ZrvPropertyValueBase()); },
                                                [&] { set.GetProperty(""); },
                                                [&] { set.GetPropertyParameters(""); },
                                                [&] { set.GetPrototype(none = new ZrvPrototypeImpl); }};
    std::set<int> lines;
    for (const auto& operation : operations) {
        operation();
        EXPECT_NE(reports.Take().find(" in ZrvProperties]"), std::string::npos);
        lines.insert(reports.line);
    }
    EXPECT_EQ(lines.size(), std::size(operations));
    EXPECT_EQ(none->Release(), 0U) << "stays as it was";
    EXPECT_EQ(ZrvDebugServices::GetTracesFromProperties(set), "");
}

TEST_F(ZrvPropertiesTest, ListsReportOtherPositions)
{
    const std::string report = " [condition 1<=iPosition && iPosition<=Size() in KELPositions]";
    KELListValKELUnicodeString wide;
    KELSysTSListOfUnicodeString narrow;
    KELRawCollfloat floats;
    wide.Append("first");
    narrow.PutBack(KELSysTSUnicodeString(nullptr));
    floats.Append(1.0F);
    for (const int position : {-1, 0, 2}) {
        floats[position] = 5.0F;
        EXPECT_TRUE(floats[position] == 0.0F && std::as_const(floats)[position] == 0.0F);
        EXPECT_TRUE(wide[position] == "" && !*narrow[position].ConvertToChar());
        EXPECT_EQ(reports.Take(), report + report + report + report + report);
    }
    ZrvProperties set;
    set.AddProperty("second", "float", nullptr);
    EXPECT_TRUE(set.GetListProperties(wide) == 1 && wide.Size() == 2 && wide[1] == "first" && wide[2] == "second");
    EXPECT_TRUE(set.GetListProperties(narrow) == 1 && narrow.Size() == 2 && !*narrow[1].ConvertToChar());
}

/// A set that keeps its names to itself when asked to.
struct SecretiveSet : ZrvProperties {
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
    source.SetProperty("a", ZrvPropertyValue<float>(1.5F));
    EXPECT_EQ(Answer(target.SetFromProperties(source)), "ok");
    EXPECT_FALSE(held->IsPurelyIdenticalTo(ZrvPropertyValue<float>(1.5F)));
    source.isSecretive = false;
    EXPECT_EQ(Answer(target.SetFromProperties(source)), "ok");
    EXPECT_TRUE(held->IsPurelyIdenticalTo(ZrvPropertyValue<float>(1.5F)) && held == target.GetProperty("a"));
}

/// A prototype of the host's, which answers as it likes: that it declares everything but "absent", a type for each
/// name, and a nested prototype.
struct OddPrototype : ZrvPrototypeImpl {
    using ZrvPrototypeImpl::GetPropertyPrototype;
    ZrvRC HasProperty(const KELUnicodeString& iName) const override
    {
        return iName == "absent" ? static_cast<ZrvRC::ErrorCode>(2) : ZrvRC::zrvEC_NothingDone;
    }
    const KELUnicodeString GetPropertyType(const KELUnicodeString& iName) const override { return typeOf(iName); }
    ZrvConstPropertiesPrototype* GetPropertyPrototype(const KELUnicodeString&) const override
    {
        return nested->AddRef(), nested;
    }
    std::function<KELUnicodeString(const KELUnicodeString&)> typeOf;
    ZrvConstPropertiesPrototype* nested = nullptr;
};

TEST_F(ZrvPropertiesTest, HostsPrototypesMayAnswerNonsense)
{
    const std::string noType = "error [condition propertyType.GetLengthInChar()>0 in ZrvProperties_data]";
    ZrvPrototypeImpl nested;
    OddPrototype odd;
    odd.nested = &nested;
    ZrvProperties set(&odd);
    odd.typeOf = [](const KELUnicodeString& iName) { return iName; };
    EXPECT_EQ(Answer(set.AddProperty("float")), "ok");
    EXPECT_EQ(Answer(set.AddProperty("x")), "error");
    EXPECT_EQ(CountOf(nested), 2U) << "given back when the property could not be made";
    EXPECT_EQ(Answer(set.AddProperty("absent")),
              "error [condition ZrvProperties::zrvPA_Unavailable!=propertyAvailability in ZrvProperties_data]");
    odd.typeOf = [](const KELUnicodeString&) { return ""; };
    EXPECT_EQ(Answer(set.AddProperty("y")), noType);
    ZrvProperties source;
    source.AddProperty("y", "float", nullptr);
    EXPECT_EQ(Answer(set.SetFromProperties(source)), noType + " [condition !(rc.IsError()) in ZrvProperties_data]");
}

// An object that goes finds an empty set, and what it adds goes, too.
TEST_F(ZrvPropertiesTest, WhatGoesWithASetMayUseIt)
{
    int gone = 0;
    {
        ZrvProperties set;
        const auto give = [&set](const char* iName, const std::function<void()>& iFarewell) {
            auto* const object = new CountedObject(iFarewell);
            set.AddProperty(iName, "KELSysTSBaseUnknownPtr", nullptr);
            set.SetProperty(iName, Object(object));
            object->Release();
        };
        for (const char* name : {"a", "b", "c"}) {
            give(name, [&, name] {
                gone += set.HasProperty(name) ? 0 : 1;
                give(gone == 3 ? "late" : "a", [&gone] { ++gone; });
            });
        }
    }
    EXPECT_EQ(gone, 6);
}

} // namespace
