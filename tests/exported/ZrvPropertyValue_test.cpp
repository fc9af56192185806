#include "CountedObject.h"
#include "Maker.h"
#include "ReportingTest.h"

#include <limits>

namespace {

// Asked for before main: the names need no start-up of their own.
const KELUnicodeString g_early = ZrvPropertyTypeConv::GetAsUnicode(zrvPT_FloatList);

using Int = ZrvPropertyValue<KELINT32>;
using ZrvPropertyValueTest = ReportingTest;

TEST(ZrvPropertyTypeConv, AnswersEarlyAndWhatIsUnknown)
{
    EXPECT_TRUE(g_early == "floatList" && ZrvPropertyValue_GetStringType() == "KELUnicodeString");
    for (const int number : {+zrvPT_Undefined, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_EQ(ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(number)), "") << number;
    }
    EXPECT_EQ(ZrvPropertyTypeConv::GetEnum("floatLists"), zrvPT_Undefined);
}

TEST_F(ZrvPropertyValueTest, EachIsComparedWithAndAssignedFromEach)
{
    unsigned char byte = 0;
    CountedObject object;
    std::vector<ValueModel> all = {
        &byte, KELUnicodeString("a text"), KELBoolean{0}, KELINT32{-1}, KELUINT32{1}, -0.0F, 1.5F,
        2.5,   KELRawCollfloat(),          &object};
    for (const KELUnicodeString& type : g_typeNames) {
        all.push_back(DefaultValue(type));
    }
    OwnMaker maker;
    const auto make = [&maker](const ValueModel& iContents, bool iIsHosts) {
        return std::unique_ptr<ZrvPropertyValueBase>(maker.MakeValue(iContents, iIsHosts));
    };
    for (std::size_t i = 0; i < 2 * all.size() * all.size(); ++i) {
        const ValueModel& one = all[i / 2 % all.size()];
        const ValueModel& other = all[i / 2 / all.size()];
        const bool isTyped = TypeOf(one) != "";
        const bool fits = isTyped && one.index() == other.index();
        const auto value = make(one, i % 2 == 0);
        EXPECT_EQ(value->IsPurelyIdenticalTo(*make(other, i % 2 != 0)), fits && one == other);
        EXPECT_EQ(Answer(value->SetValueFromProperty(*make(other, i % 2 == 0))),
                  fits      ? "ok"
                  : isTyped ? "error"
                            : "error [message Property value wihtout type cannot be set. in ZrvPropertyValueBase]");
        const std::unique_ptr<ZrvPropertyValueBase> copy(value->Duplicate());
        EXPECT_TRUE(isTyped ? ReadValue(*copy) == (fits ? other : one) : !copy) << i;
    }
    const ZrvPropertyValue<float> noNumber(std::numeric_limits<float>::quiet_NaN());
    EXPECT_FALSE(noNumber.IsPurelyIdenticalTo(noNumber));
    EXPECT_EQ(CountOf(object), 1U);
}

/// Values of classes of the host's: one that names a type that it is not of, and one with its own way to be set.
struct Odd : ZrvPropertyValueBase {
    KELUnicodeString GetType() const override { return "f"; }
};

struct OneLess : Int {
    using Int::Int;
    ZrvRC SetValue(KELINT32 iNew) override { return Int::SetValue(iNew - 1), ZrvRC(ZrvRC::zrvEC_NothingDone, "own"); }
};

TEST_F(ZrvPropertyValueTest, ClassesOfTheHostsAreTakenForWhatTheyAre)
{
    Odd odd;
    EXPECT_EQ(Answer(odd.SetValueFromProperty(Int(1))),
              "error [condition GetType().GetLengthInChar()<=0 in ZrvPropertyValueBase]");
    EXPECT_EQ(Answer(Int(1).SetValueFromProperty(odd)), "error");
    EXPECT_FALSE(Int(1).IsPurelyIdenticalTo(odd));
    OneLess value(0);
    EXPECT_EQ(Answer(value.SetValueFromProperty(Int(20))), "nothing done: own");
    EXPECT_TRUE(value.IsPurelyIdenticalTo(Int(19)));
    auto* const object = new CountedObject;
    ZrvPropertyValue<KELSysTSBaseUnknown*> held(object);
    object->Release();
    held.SetValue(object); // is taken again before it is given up
    void* found = &odd;
    EXPECT_TRUE(object->QueryInterface(nullptr, &found) == static_cast<HRESULT>(0x80004002) && !found &&
                CountOf(*object) == 1 && !object->GetMetaObject());
}

} // namespace
