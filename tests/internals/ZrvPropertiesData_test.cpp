#include "ZrvProperties_data.h"

#include "CountedObject.h"
#include "ReportingTest.h"
#include "ZrvPropertyValue.h"
#include "ZrvPrototypeImpl.h"

#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace {

const std::string g_noName = " [condition iPropertyName.GetLengthInChar()>0 in ZrvProperties_data]";

using Int = ZrvPropertyValue<KELINT32>;

class ZrvPropertiesDataTest : public ReportingTest {
protected:
    /// Puts an entry into the map that no operation of the set makes.
    static void Plant(ZrvPropertiesData& ioData, const char* iName, std::unique_ptr<ZrvProperty> iProperty)
    {
        ioData.m_propertyMap.Insert(iName, iProperty.release());
    }

    ZrvPrototypeImpl prototype;
    ZrvPrototypeImpl object;
    ZrvPropertiesData free{nullptr};
    ZrvPropertiesData bound{&prototype};
};

// The front refuses these arguments before they come here.
TEST_F(ZrvPropertiesDataTest, ChecksItsOwnArguments)
{
    EXPECT_EQ(Answer(bound.AddProperty("", "", nullptr)),
              "error: AddProperty: Wrong call, should not have prototype. [condition !m_pPrototype in "
              "ZrvProperties_data]");
    EXPECT_EQ(Answer(free.AddProperty("", "", nullptr)), "error: AddProperty: Missing propertyName" + g_noName);
    EXPECT_EQ(Answer(free.AddProperty("n", "", nullptr)),
              "error: AddProperty: Missing propertyType [condition iPropertyType.GetLengthInChar()>0 in "
              "ZrvProperties_data]");
    EXPECT_EQ(Answer(free.AddProperty("")), "error [pointer m_pPrototype in ZrvProperties_data]");
    EXPECT_EQ(Answer(bound.AddProperty("")), "error" + g_noName);
    EXPECT_EQ(Answer(free.SetProperty("", Int(1))), "error" + g_noName);
    EXPECT_EQ(Answer(free.SetProperty("n", ZrvPropertyValueBase())),
              "error [condition iValue.GetType().GetLengthInChar()>0 in ZrvProperties_data]");
    EXPECT_EQ(Answer(free.GetProperty("")), "null" + g_noName);
    EXPECT_EQ(Answer(free.GetPropertyParameters("")), "null" + g_noName);
    EXPECT_EQ(reports.Lines(), 7U) << "each operation says where it is";
    EXPECT_EQ(Answer(free.HasProperty("")), "0");
    EXPECT_EQ(Answer(free.SetFromProperties(bound)), "error") << "nothing to copy";
}

TEST_F(ZrvPropertiesDataTest, AnEntryWithoutAPropertyIsHeldButNotInstantiated)
{
    Plant(free, "vacant", nullptr);
    EXPECT_EQ(free.HasProperty("vacant"), 1);
    EXPECT_EQ(free.GetAvailability("vacant"), ZrvProperties::zrvPA_Available);
    EXPECT_EQ(Answer(free.GetProperty("vacant")), "null");
    EXPECT_EQ(Answer(free.GetPropertyType("vacant")), "''");
    EXPECT_EQ(Answer(free.SetProperty("vacant", Int(1))), "error");
    EXPECT_EQ(Answer(free.GetPropertyParameters("vacant")), "null [pointer *ppProperty in ZrvProperties_data]");
    EXPECT_EQ(ZrvPropertiesData(free).HasProperty("vacant"), 0);

    EXPECT_EQ(Answer(free.AddProperty("vacant", "KELINT32", nullptr)), "ok");
    EXPECT_EQ(free.GetAvailability("vacant"), ZrvProperties::zrvPA_Instantiated);
    EXPECT_EQ(Answer(free.SetProperty("vacant", Int(1))), "ok");
    EXPECT_EQ(free.m_propertyMap.Size(), 1);
}

TEST_F(ZrvPropertiesDataTest, CopyRefusesIncompleteProperties)
{
    const std::string noType = " [condition inputPropertyType.GetLengthInChar()>0 in ZrvProperties_data]";
    const std::tuple<const char*, bool, std::string> cases[] = {
        {"", true,
         "error: Property without name. [condition inputPropertyName.Compare(\"\")!=2 in ZrvProperties_data]"},
        {"n", false, "error: Property without type." + noType},
        {"n", true, "error: Property without type. [pointer m_value in ZrvProperty]" + noType}};
    for (const auto& [name, hasProperty, answer] : cases) {
        ZrvPropertiesData source(nullptr);
        source.AddProperty("sound", "KELINT32", nullptr);
        Plant(source, name, hasProperty ? std::make_unique<ZrvProperty>(nullptr) : nullptr);
        EXPECT_EQ(Answer(free.SetFromProperties(source)), answer);
        EXPECT_EQ(free.HasProperty("sound"), 0);
    }
}

TEST_F(ZrvPropertiesDataTest, CopyTakesValuesThatLieElsewhereByTheirType)
{
    const std::tuple<const char*, const char*> cases[] = {{"KELINT32", "ok"}, {"float", "error"}};
    for (const auto& [type, answer] : cases) {
        ZrvPropertiesData source(nullptr);
        source.AddProperty("n", type, nullptr);
        ZrvPropertiesData target(nullptr);
        auto elsewhere = std::make_unique<ZrvProperty>(nullptr);
        elsewhere->SetValue(Int(1));
        Plant(target, "n", std::move(elsewhere));
        EXPECT_EQ(Answer(target.SetFromProperties(source)), answer);
    }
}

TEST_F(ZrvPropertiesDataTest, NamelessEntriesAreNeitherListedNorDuplicated)
{
    ZrvProperties front;
    Plant(*front.m_PropertiesData, "", std::make_unique<ZrvProperty>(nullptr));
    EXPECT_EQ(Answer(ZrvProperties().SetFromProperties(front)), "ok") << "a source without names";
    front.AddProperty("n", "float", nullptr);
    KELListValKELUnicodeString list;
    EXPECT_EQ(front.GetListProperties(list), 1);
    EXPECT_EQ(list.Size(), 1);
    const ZrvProperties copy(front);
    EXPECT_EQ(copy.HasProperty(""), 0);
    EXPECT_EQ(copy.HasProperty("n"), 1);
}

TEST_F(ZrvPropertiesDataTest, WhatGoesWithASetMayCallBackIntoIt)
{
    ZrvPropertiesData source(nullptr);
    std::vector<KELUINT32> holders; // of the prototype, whenever an object goes
    const auto giveMeddler = [&](ZrvPropertiesData& ioSet, const char* iName) {
        const auto meddler = KELReference<KELSysTSBaseUnknown>::Adopt(new CountedObject([&] {
            holders.push_back(CountOf(prototype));
            free.AddProperty("late", "KELINT32", nullptr);
            free = source;
        }));
        ioSet.SetProperty(iName, ZrvPropertyValue<KELSysTSBaseUnknown*>(meddler.Get()));
    };
    for (const char* name : {"a", "b", "c"}) {
        source.AddProperty(name, "KELINT32", nullptr);
        free.AddProperty(name, "KELSysTSBaseUnknownPtr", &prototype);
        giveMeddler(free, name);
    }
    source.AddProperty("object", "KELSysTSBaseUnknownPtr", nullptr);
    source.SetProperty("object", ZrvPropertyValue<KELSysTSBaseUnknown*>(&object));
    free = source;
    free = std::as_const(free);
    EXPECT_EQ(free.m_propertyMap.Size(), 4);
    EXPECT_EQ(Answer(free.GetPropertyType("b")), "'KELINT32'");
    EXPECT_EQ(holders, (std::vector<KELUINT32>{5, 4, 3})) << "a value goes before the prototype that describes it";
    EXPECT_EQ(CountOf(prototype), 2U);
    EXPECT_EQ(CountOf(object), 3U) << "the source's and the set's; what was added meanwhile is gone";

    holders.clear();
    prototype.AddProperty("object", zrvPT_BaseUnknownPtr, nullptr);
    {
        ZrvPropertiesData going(&prototype);
        for (int round = 0; round < 2; ++round) {
            going = bound; // which has nothing to copy
            going.AddProperty("object");
            giveMeddler(going, "object");
            EXPECT_EQ(CountOf(prototype), 3U);
        }
    }
    EXPECT_EQ(holders, (std::vector<KELUINT32>{2, 2})) << "assigned or destroyed, a set goes on without its prototype";
}

} // namespace
