#include "KELSYPHashMap.h"
#include "ZrvProperties.h"
#include "ZrvProperties_data.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPropertyValue.h"
#include "ZrvPrototypeImpl.h"

#include "CheckRecorder.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>

// Operations of objects without what their constructors give them, as no caller ever sees them.
namespace {

const std::vector<Report> g_noData = Pointer("m_PropertiesData", "ZrvProperties");

bool IsError(ZrvRC iRc)
{
    return iRc.GetRC() == ZrvRC::zrvEC_Error && iRc.GetTrace().GetLengthInChar() == 0;
}

TEST(MissingParts, SetWithoutDataReportsAndAnswersFailure)
{
    CheckRecorder reports;
    ZrvPrototypeImpl prototype;
    ZrvProperties sound;
    sound.AddProperty("n", "float", nullptr);
    ZrvProperties set;
    set.m_PropertiesData = nullptr;
    ZrvConstPropertiesPrototype* out = &prototype;
    KELListValKELUnicodeString list;
    KELSysTSListOfUnicodeString tsList;

    const std::function<bool()> operations[] = {
        [&] { return IsError(set.GetPrototype(out)) && out == &prototype; },
        [&] { return set.HasProperty("n") == 0; },
        [&] { return set.GetListProperties(list) == 0 && list.Size() == 0; },
        [&] { return set.GetListProperties(tsList) == 0 && tsList.Size() == 0; },
        [&] { return set.GetAvailability("n") == ZrvProperties::zrvPA_Unavailable; },
        [&] { return set.GetPropertyType("n").GetLengthInChar() == 0; },
        [&] { return IsError(set.AddProperty("", "", nullptr)); },
        [&] { return IsError(set.AddProperty("")); },
        [&] { return set.GetPropertyParameters("") == nullptr; },
        [&] { return IsError(set.SetFromProperties(set)); },
        [&] { return set.GetProperty("") == nullptr; },
        [&] { return IsError(set.SetProperty("", ZrvPropertyValueBase())); },
        [&] { return &(set = sound) == &set && sound.HasProperty("n"); },
    };
    for (std::size_t i = 0; i < std::size(operations); ++i) {
        EXPECT_TRUE(operations[i]()) << i;
        EXPECT_EQ(reports.Take(), g_noData) << i;
    }

    EXPECT_TRUE(IsError(sound.SetFromProperties(set)));
    EXPECT_EQ(reports.Take(), Pointer("iPropertiesValues.m_PropertiesData", "ZrvProperties"));
    sound = set;
    EXPECT_EQ(reports.Take(), Pointer("iProperties.m_PropertiesData", "ZrvProperties"));
    EXPECT_EQ(sound.HasProperty("n"), 1);
    ZrvProperties copy(set);
    EXPECT_EQ(copy.m_PropertiesData, nullptr);
    copy = set;
    EXPECT_EQ(reports.Take(), (std::vector<Report>{{kelCF_Pointer, "m_PropertiesData", "ZrvProperties"},
                                                   {kelCF_Pointer, "iProperties.m_PropertiesData", "ZrvProperties"}}));
    const ZrvProperties& self = copy;
    copy = self;
    EXPECT_EQ(reports.Take(), Nothing());
}

TEST(MissingParts, PrototypeWithoutMapReportsAndAnswersFailure)
{
    CheckRecorder reports;
    ZrvPrototypeImpl prototype;
    prototype.m_properties = nullptr;
    const ZrvPrototypeImpl& reader = prototype;
    ZrvConstPropertiesPrototype* out = &prototype;
    const std::function<bool()> operations[] = {
        [&] { return IsError(reader.HasProperty("n")); },
        [&] { return reader.GetPropertyType("n").GetLengthInChar() == 0; },
        [&] { return reader.GetPropertyAsType("n") == zrvPT_Undefined; },
        [&] { return reader.GetPropertyPrototype("n") == nullptr; },
        [&] { return IsError(prototype.AddProperty("", "", nullptr)); },
        [&] { return IsError(prototype.AddProperty("n", zrvPT_Float, nullptr)); },
        [&] { return IsError(prototype.RemoveProperty("")); },
        [&] { return IsError(prototype.GetPropertyPrototype("n", out)) && out == &prototype; },
        [&] { return IsError(prototype.IsValid()); },
        [&] { return reader.GetPropertyDefinition("n") == nullptr; },
    };
    for (std::size_t i = 0; i < std::size(operations); ++i) {
        EXPECT_TRUE(operations[i]()) << i;
        EXPECT_EQ(reports.Take(), Pointer("m_properties", "ZrvPrototypeImpl")) << i;
    }
}

} // namespace
