#include "KELSYPHashMap.h"
#include "ZrvProperties.h"
#include "ZrvProperties_data.h"
#include "ZrvPropertyDefinition.h"
#include "ZrvPrototypeImpl.h"

#include "ReportingTest.h"

// Operations of objects without what their constructors give them, as no caller ever sees them.
namespace {

class MissingParts : public ReportingTest {
protected:
    ZrvPrototypeImpl prototype;
    ZrvConstPropertiesPrototype* out = &prototype;
    KELListValKELUnicodeString list;
    KELSysTSListOfUnicodeString tsList;
};

TEST_F(MissingParts, SetWithoutDataReportsAndAnswersFailure)
{
    ZrvProperties sound;
    sound.AddProperty("n", "float", nullptr);
    ZrvProperties set;
    set.m_PropertiesData = nullptr;
    const std::string noData = " [pointer m_PropertiesData in ZrvProperties]";
    EXPECT_EQ(Answer(set.GetPrototype(out)), "error" + noData);
    EXPECT_EQ(Answer(set.HasProperty("n")), "0" + noData);
    EXPECT_EQ(Answer(set.GetListProperties(list)), "0" + noData);
    EXPECT_EQ(Answer(set.GetListProperties(tsList)), "0" + noData);
    EXPECT_EQ(Answer<int>(set.GetAvailability("n")), "0" + noData);
    EXPECT_EQ(Answer(set.GetPropertyType("n")), "''" + noData);
    EXPECT_EQ(Answer(set.AddProperty("", "", nullptr)), "error" + noData);
    EXPECT_EQ(Answer(set.AddProperty("")), "error" + noData);
    EXPECT_EQ(Answer(set.GetPropertyParameters("")), "null" + noData);
    EXPECT_EQ(Answer(set.SetFromProperties(set)), "error" + noData);
    EXPECT_EQ(Answer(set.GetProperty("")), "null" + noData);
    EXPECT_EQ(Answer(set.SetProperty("", ZrvPropertyValueBase())), "error" + noData);
    EXPECT_EQ(Answer(&(set = sound)), "there" + noData);

    const std::string noSource = " [pointer iProperties.m_PropertiesData in ZrvProperties]";
    EXPECT_EQ(Answer(sound.SetFromProperties(set)),
              "error [pointer iPropertiesValues.m_PropertiesData in ZrvProperties]");
    EXPECT_EQ(Answer(&(sound = set)), "there" + noSource);
    EXPECT_EQ(sound.HasProperty("n"), 1);
    ZrvProperties copy(set);
    EXPECT_EQ(copy.m_PropertiesData, nullptr);
    EXPECT_EQ(Answer(&(copy = set)), "there" + noData + noSource);
    EXPECT_EQ(Answer(&(copy = std::as_const(copy))), "there");
}

TEST_F(MissingParts, PrototypeWithoutMapReportsAndAnswersFailure)
{
    ZrvPrototypeImpl empty;
    empty.m_properties = nullptr;
    const std::string noMap = " [pointer m_properties in ZrvPrototypeImpl]";
    EXPECT_EQ(Answer(empty.HasProperty("n")), "error" + noMap);
    EXPECT_EQ(Answer(KELUnicodeString(empty.GetPropertyType("n"))), "''" + noMap);
    EXPECT_EQ(Answer<int>(empty.GetPropertyAsType("n")), "9" + noMap);
    EXPECT_EQ(Answer(std::as_const(empty).GetPropertyPrototype("n")), "null" + noMap);
    EXPECT_EQ(Answer(empty.AddProperty("", "", nullptr)), "error" + noMap);
    EXPECT_EQ(Answer(empty.AddProperty("n", zrvPT_Float, nullptr)), "error" + noMap);
    EXPECT_EQ(Answer(empty.RemoveProperty("")), "error" + noMap);
    EXPECT_EQ(Answer(empty.GetPropertyPrototype("n", out)), "error" + noMap);
    EXPECT_EQ(out, &prototype);
    EXPECT_EQ(Answer(empty.IsValid()), "error" + noMap);
}

} // namespace
