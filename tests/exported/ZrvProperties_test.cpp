#include "Zorvel.h"

#include "CountedObject.h"
#include "ReportingTest.h"

#include <set>

namespace {

using ZrvPropertiesTest = ReportingTest;

TEST_F(ZrvPropertiesTest, EachReportNamesTheLineOfItsOperation)
{
    ZrvProperties set;
    ZrvConstPropertiesPrototype* none = nullptr;
    std::set<int> lines;
    const auto takeLine = [&] {
        EXPECT_NE(reports.Take().find(" in ZrvProperties]"), std::string::npos);
        EXPECT_TRUE(lines.insert(reports.line).second);
    };
    set.AddProperty("", "float", nullptr), takeLine();
    set.AddProperty(""), takeLine();
    set.SetProperty("", ZrvPropertyValueBase()), takeLine();
    set.GetProperty(""), takeLine();
    set.GetPropertyParameters(""), takeLine();
    set.GetPrototype(none = new ZrvPrototypeImpl), takeLine();
    EXPECT_EQ(none->Release(), 0U) << "stays as it was";
    EXPECT_EQ(ZrvDebugServices::GetTracesFromProperties(set), "");
}

TEST_F(ZrvPropertiesTest, ListsReportOtherPositions)
{
    const std::string report = " [condition 1<=iPosition && iPosition<=Size() in KELPositions]";
    KELListValKELUnicodeString texts;
    KELRawCollfloat floats;
    texts.Append("first"), floats.Append(1.0F);
    for (const int position : {-1, 0, 2}) {
        floats[position] = 5.0F;
        EXPECT_TRUE(floats[position] == 0.0F && std::as_const(floats)[position] == 0.0F && texts[position] == "");
        EXPECT_EQ(reports.Take(), report + report + report + report);
    }
}

/// A set that does not say how much it holds.
struct SecretiveSet : ZrvProperties {
    using ZrvProperties::GetListProperties;
    int GetListProperties(KELListValKELUnicodeString&) const override { return said; }
    int said = 0;
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
    EXPECT_EQ(Answer(target.SetFromProperties(ZrvProperties(source))), "ok");
    EXPECT_TRUE(held->IsPurelyIdenticalTo(value) && held == target.GetProperty("a"));
    SecretiveSet empty;
    EXPECT_EQ((empty.said = 1, Answer(target.SetFromProperties(empty))), "error");
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
    const ZrvProperties copy(set);
    EXPECT_EQ(CountOf(nested), 3U) << "given back when the property could not be made, and held by the copy";
    EXPECT_EQ(Answer(set.AddProperty("absent")),
              "error [condition ZrvProperties::zrvPA_Unavailable!=propertyAvailability in ZrvProperties_data]");
    odd.typeOf = [](const KELUnicodeString&) { return ""; };
    EXPECT_EQ(Answer(set.AddProperty("y")), noType);
    ZrvProperties source;
    source.AddProperty("y", "float", nullptr);
    EXPECT_EQ(Answer(set.SetFromProperties(source)), noType + " [condition !(rc.IsError()) in ZrvProperties_data]");
}

} // namespace
