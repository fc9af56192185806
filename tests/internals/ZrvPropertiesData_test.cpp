#include "ZrvProperties_data.h"

#include "CheckRecorder.h"
#include "NineTypes.h"
#include "ZrvPrototypeImpl.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {

constexpr char kFile[] = "ZrvProperties_data";
constexpr char kName[] = "iPropertyName.GetLengthInChar()>0";

using Int = ZrvPropertyValue<KELINT32>;

class ZrvPropertiesDataTest : public ::testing::Test {
protected:
    ~ZrvPropertiesDataTest() override { EXPECT_EQ(reports.Take(), Nothing()); }

    void ExpectError(ZrvRC iRc, const std::vector<Report>& iReports, const char* iTrace = "")
    {
        EXPECT_EQ(iRc.GetRC(), ZrvRC::zrvEC_Error);
        EXPECT_STREQ(iRc.Dump(), iTrace);
        EXPECT_EQ(reports.Take(), iReports);
    }

    /// Puts an entry into the map that no operation of the set makes.
    static void Plant(ZrvPropertiesData& ioData, const char* iName, std::unique_ptr<ZrvProperty> iProperty)
    {
        ioData.m_propertyMap.Insert(iName, iProperty.release());
    }

    CheckRecorder reports;
    ZrvPrototypeImpl prototype;
    ZrvPropertiesData free{nullptr};
    ZrvPropertiesData bound{&prototype};
};

// The front refuses these arguments before they come here.
TEST_F(ZrvPropertiesDataTest, ChecksItsOwnArguments)
{
    ExpectError(bound.AddProperty("", "", nullptr), Condition("!m_pPrototype", kFile),
                "AddProperty: Wrong call, should not have prototype.");
    ExpectError(free.AddProperty("", "", nullptr), Condition(kName, kFile), "AddProperty: Missing propertyName");
    ExpectError(free.AddProperty("n", "", nullptr), Condition("iPropertyType.GetLengthInChar()>0", kFile),
                "AddProperty: Missing propertyType");
    ExpectError(free.AddProperty(""), Pointer("m_pPrototype", kFile));
    ExpectError(bound.AddProperty(""), Condition(kName, kFile));
    ExpectError(free.SetProperty("", Int(1)), Condition(kName, kFile));
    ExpectError(free.SetProperty("n", ZrvPropertyValueBase()),
                Condition("iValue.GetType().GetLengthInChar()>0", kFile));
    EXPECT_EQ(free.GetProperty(""), nullptr);
    EXPECT_EQ(reports.Take(), Condition(kName, kFile));
    EXPECT_EQ(free.GetPropertyParameters(""), nullptr);
    EXPECT_EQ(reports.Take(), Condition(kName, kFile));
    EXPECT_EQ(free.HasProperty(""), 0);
}

TEST_F(ZrvPropertiesDataTest, AnEntryWithoutAPropertyIsHeldButNotInstantiated)
{
    Plant(free, "vacant", nullptr);
    EXPECT_EQ(free.HasProperty("vacant"), 1);
    EXPECT_EQ(free.GetAvailability("vacant"), ZrvProperties::zrvPA_Available);
    EXPECT_EQ(free.GetProperty("vacant"), nullptr);
    EXPECT_EQ(free.GetPropertyType("vacant").GetLengthInChar(), 0);
    ExpectError(free.SetProperty("vacant", Int(1)), Nothing());
    EXPECT_EQ(free.GetPropertyParameters("vacant"), nullptr);
    EXPECT_EQ(reports.Take(), Pointer("*ppProperty", kFile));
    const ZrvPropertiesData copy(free);
    EXPECT_EQ(copy.HasProperty("vacant"), 0);

    EXPECT_TRUE(free.AddProperty("vacant", "KELINT32", nullptr) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(free.GetAvailability("vacant"), ZrvProperties::zrvPA_Instantiated);
    EXPECT_TRUE(free.SetProperty("vacant", Int(1)) == ZrvRC::zrvEC_OK);
    EXPECT_EQ(free.m_propertyMap.Size(), 1);
}

TEST_F(ZrvPropertiesDataTest, CopyRefusesIncompleteProperties)
{
    struct Case {
        const char* name;
        bool hasProperty;
        std::vector<Report> reported;
        const char* trace;
    };
    const Case cases[] = {
        {"", true, Condition("inputPropertyName.Compare(\"\")!=2", kFile), "Property without name."},
        {"n", false, Condition("inputPropertyType.GetLengthInChar()>0", kFile), "Property without type."},
        {"n",
         true,
         {{kelCF_Pointer, "m_value", "ZrvProperty"}, {kelCF_Condition, "inputPropertyType.GetLengthInChar()>0", kFile}},
         "Property without type."},
    };
    for (const Case& c : cases) {
        ZrvPropertiesData source(nullptr);
        source.AddProperty("sound", "KELINT32", nullptr);
        Plant(source, c.name, c.hasProperty ? std::make_unique<ZrvProperty>(nullptr) : nullptr);
        ExpectError(free.SetFromProperties(source), c.reported, c.trace);
        EXPECT_EQ(free.HasProperty("sound"), 0);
    }
}

TEST_F(ZrvPropertiesDataTest, CopyConstructionSkipsNamelessEntriesAndListsTellTheRest)
{
    Plant(free, "", std::make_unique<ZrvProperty>(nullptr));
    free.AddProperty("n", "float", nullptr);
    KELListValKELUnicodeString list;
    EXPECT_EQ(free.GetListProperties(list), 1);
    EXPECT_EQ(list.Size(), 1);
    const ZrvPropertiesData copy(free);
    EXPECT_EQ(copy.HasProperty(""), 0);
    EXPECT_EQ(copy.HasProperty("n"), 1);
}

TEST_F(ZrvPropertiesDataTest, CopyIntoAVacantEntryFails)
{
    ZrvPropertiesData source(nullptr);
    source.AddProperty("n", "float", nullptr);
    Plant(free, "n", nullptr);
    ExpectError(free.SetFromProperties(source), Nothing());
}

TEST_F(ZrvPropertiesDataTest, CopyingOneselfOrNothing)
{
    EXPECT_TRUE(free.SetFromProperties(bound) == ZrvRC::zrvEC_Error) << "an empty source is for the front to answer";
    free.AddProperty("n", "KELINT32", nullptr);
    free.SetProperty("n", Int(5));
    EXPECT_TRUE(free.SetFromProperties(free) == ZrvRC::zrvEC_OK);
    const ZrvPropertiesData& self = free;
    free = self;
    EXPECT_EQ(Read<KELINT32>(free.GetProperty("n")), 5);
}

/// An object that assigns to the set that lets go of it.
class Meddler : public CountedObject {
public:
    Meddler(ZrvPropertiesData& ioSet, const ZrvPropertiesData& iSource) : m_set(ioSet), m_source(iSource) {}
    ~Meddler() override
    {
        m_set.AddProperty("late", "KELINT32", nullptr);
        m_set = m_source;
    }

private:
    ZrvPropertiesData& m_set;
    const ZrvPropertiesData& m_source;
};

TEST_F(ZrvPropertiesDataTest, WhatGoesWithASetMayCallBackIntoIt)
{
    ZrvPropertiesData source(nullptr);
    for (const char* name : {"a", "b", "c"}) {
        source.AddProperty(name, "KELINT32", nullptr);
        free.AddProperty(name, "KELSysTSBaseUnknownPtr", &prototype);
        const auto meddler = KELReference<KELSysTSBaseUnknown>::Adopt(new Meddler(free, source));
        free.SetProperty(name, ZrvPropertyValue<KELSysTSBaseUnknown*>(meddler.Get()));
    }
    free = source;
    EXPECT_EQ(free.m_propertyMap.Size(), 3);
    EXPECT_STREQ(free.GetPropertyType("b").ConvertToChar(), "KELINT32");
    EXPECT_EQ(CountOf(prototype), 2U);
}

TEST_F(ZrvPropertiesDataTest, NestedParametersAreHandedOutAsCopies)
{
    free.AddProperty("n", "float", nullptr);
    ZrvProperty* const property = *free.m_propertyMap.Locate("n");
    property->m_pParameters = std::make_unique<ZrvProperties>();
    property->m_pParameters->AddProperty("nested", "KELINT32", nullptr);
    const ZrvPropertiesData copy(free);
    for (const ZrvPropertiesData* each : {static_cast<const ZrvPropertiesData*>(&free), &copy}) {
        const std::unique_ptr<ZrvProperties> parameters(each->GetPropertyParameters("n"));
        ASSERT_NE(parameters, nullptr);
        EXPECT_EQ(parameters->HasProperty("nested"), 1);
        EXPECT_NE(parameters.get(), property->m_pParameters.get());
    }
}

TEST_F(ZrvPropertiesDataTest, EveryOperationWaitsForTheLock)
{
    free.AddProperty("n", "KELINT32", nullptr);
    ZrvPropertiesData source(free);
    int done = 0; // guarded by the lock of `free`
    free.m_mutex.Lock();
    std::thread other([&] {
        free.SetProperty("n", Int(2));
        done = 1;
        source.SetFromProperties(free);
    });
    EXPECT_EQ(done, 0);
    EXPECT_EQ(Read<KELINT32>(free.GetProperty("n")), 0) << "the holder itself goes on";
    free.m_mutex.Unlock();
    other.join();
    EXPECT_EQ(Read<KELINT32>(source.GetProperty("n")), 2);
}

} // namespace
