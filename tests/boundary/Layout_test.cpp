#include "KELListValKELUnicodeString.h"
#include "KELSysTSListOfUnicodeString.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace {

// On this processor a pointer to a virtual operation is 1 more than the operation's offset in the virtual table.
template <class Member>
std::size_t SlotOf(Member iMember)
{
    std::size_t parts[2];
    static_assert(sizeof(iMember) == sizeof(parts));
    std::memcpy(parts, &iMember, sizeof(parts));
    EXPECT_EQ(parts[0] % sizeof(void*), 1U) << "not virtual";
    return parts[0] / sizeof(void*);
}

/// Adds an operation behind all that C has, to see how many those are.
template <class C>
struct Longer : C {
    virtual void End();
};

template <class C, class Signature>
using Operation = Signature C::*;

using Name = const KELUnicodeString&;
using Nested = ZrvConstPropertiesPrototype*;

// Callers that were compiled earlier rely on these sizes and slots: a change here needs a new major version.
TEST(Layout, SizesAndNumbersOfSlots)
{
    struct Case {
        const char* name;
        std::size_t actualSize, actualSlots, size, slots;
    };
#define LAYOUT_CLASS(Class) #Class, sizeof(Class), SlotOf(&Longer <Class>::End)
    const Case cases[] = {
        {LAYOUT_CLASS(KELUnicodeString), 8, 0},
        {LAYOUT_CLASS(KELRawCollfloat), 8, 0},
        {LAYOUT_CLASS(KELListValKELUnicodeString), 24, 0},
        {LAYOUT_CLASS(KELSysTSListOfUnicodeString), 24, 0},
        {LAYOUT_CLASS(KELSysElapseTime), 8, 0},
        {LAYOUT_CLASS(KELSysTSBaseUnknown), 16, 6},
        {LAYOUT_CLASS(ZrvRC), 16, 0},
        {LAYOUT_CLASS(ZrvPropertyTypeConv), 1, 0},
        {LAYOUT_CLASS(ZrvDebugServices), 1, 0},
        {LAYOUT_CLASS(ZrvFPSMeasure), 48, 2},
        {LAYOUT_CLASS(ZrvPropertyValueBase), 8, 6},
        {LAYOUT_CLASS(ZrvPropertyValue<float>), 16, 8},
        {LAYOUT_CLASS(ZrvPropertyValue<KELRawCollfloat>), 16, 8},
        {LAYOUT_CLASS(ZrvPropertyValue<KELSysTSBaseUnknown*>), 16, 8},
        {LAYOUT_CLASS(ZrvConstPropertiesPrototype), 16, 11},
        {LAYOUT_CLASS(ZrvPropertiesPrototype), 16, 14},
        {LAYOUT_CLASS(ZrvPrototypeImpl), 24, 15},
        {LAYOUT_CLASS(ZrvProperties), 16, 12},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.actualSize, c.size) << c.name;
        EXPECT_EQ(c.actualSlots, c.slots) << c.name;
    }
}

// A destructor is in two slots that have no name here.
TEST(Layout, OrderOfVirtualOperations)
{
    struct Case {
        const char* name;
        std::size_t actual, slot;
    };
#define LAYOUT_SLOT(Class, Member) #Class "::" #Member, SlotOf(&Class::Member)
#define LAYOUT_OVERLOAD(Class, Member, Signature)                                                                      \
#Class "::" #Member " " #Signature, SlotOf(static_cast <Operation <Class, Signature>>(&Class::Member))
    const Case cases[] = {
        {LAYOUT_SLOT(KELSysTSBaseUnknown, QueryInterface), 0},
        {LAYOUT_SLOT(KELSysTSBaseUnknown, AddRef), 1},
        {LAYOUT_SLOT(KELSysTSBaseUnknown, Release), 2},
        {LAYOUT_SLOT(KELSysTSBaseUnknown, GetMetaObject), 3},
        {LAYOUT_SLOT(ZrvPropertyValueBase, GetType), 2},
        {LAYOUT_SLOT(ZrvPropertyValueBase, Duplicate), 3},
        {LAYOUT_SLOT(ZrvPropertyValueBase, SetValueFromProperty), 4},
        {LAYOUT_SLOT(ZrvPropertyValueBase, IsPurelyIdenticalTo), 5},
        {LAYOUT_SLOT(ZrvPropertyValue<float>, SetValue), 6},
        {LAYOUT_SLOT(ZrvPropertyValue<float>, GetValue), 7},
        {LAYOUT_SLOT(ZrvPropertyValue<KELSysTSBaseUnknown*>, SetValue), 6},
        {LAYOUT_SLOT(ZrvPropertyValue<KELSysTSBaseUnknown*>, GetValue), 7},
        {LAYOUT_SLOT(ZrvConstPropertiesPrototype, GetListProperties), 6},
        {LAYOUT_SLOT(ZrvConstPropertiesPrototype, HasProperty), 7},
        {LAYOUT_SLOT(ZrvConstPropertiesPrototype, GetPropertyType), 8},
        {LAYOUT_SLOT(ZrvConstPropertiesPrototype, GetPropertyAsType), 9},
        {LAYOUT_SLOT(ZrvConstPropertiesPrototype, GetPropertyPrototype), 10},
        {LAYOUT_OVERLOAD(ZrvPropertiesPrototype, AddProperty, ZrvRC(Name, Name, Nested)), 11},
        {LAYOUT_OVERLOAD(ZrvPropertiesPrototype, AddProperty, ZrvRC(Name, ZrvPropertyType, Nested)), 12},
        {LAYOUT_SLOT(ZrvPropertiesPrototype, RemoveProperty), 13},
        {LAYOUT_OVERLOAD(ZrvPrototypeImpl, GetPropertyPrototype, ZrvRC(Name, Nested&)), 14},
        {LAYOUT_SLOT(ZrvProperties, GetPrototype), 2},
        {LAYOUT_SLOT(ZrvProperties, HasProperty), 3},
        {LAYOUT_OVERLOAD(ZrvProperties, GetListProperties, int(KELSysTSListOfUnicodeString&) const), 4},
        {LAYOUT_OVERLOAD(ZrvProperties, GetListProperties, int(KELListValKELUnicodeString&) const), 5},
        {LAYOUT_SLOT(ZrvProperties, GetAvailability), 6},
        {LAYOUT_SLOT(ZrvProperties, GetPropertyType), 7},
        {LAYOUT_OVERLOAD(ZrvProperties, AddProperty, ZrvRC(Name, Name, Nested)), 8},
        {LAYOUT_OVERLOAD(ZrvProperties, AddProperty, ZrvRC(Name)), 9},
        {LAYOUT_SLOT(ZrvProperties, GetPropertyParameters), 10},
        {LAYOUT_SLOT(ZrvProperties, SetFromProperties), 11},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.actual, c.slot) << c.name;
    }
}

} // namespace
