#include "KELListValKELUnicodeString.h"
#include "KELSysTSListOfUnicodeString.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

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

template <class... Classes>
std::string SizesAndSlots()
{
    std::string all;
    ((all += std::to_string(sizeof(Classes)) + ":" + std::to_string(SlotOf(&Longer<Classes>::End)) + " "), ...);
    return all;
}

// Callers that were compiled earlier rely on these sizes and slots: a change here needs a new major version.
TEST(Layout, SizesAndNumbersOfSlots)
{
    EXPECT_EQ((SizesAndSlots<KELUnicodeString, KELRawCollfloat, KELListValKELUnicodeString, KELSysTSListOfUnicodeString,
                             KELSysElapseTime, KELSysTSBaseUnknown>()),
              "8:0 8:0 24:0 24:0 8:0 16:6 ");
    EXPECT_EQ((SizesAndSlots<ZrvRC, ZrvPropertyTypeConv, ZrvDebugServices, ZrvFPSMeasure>()), "16:0 1:0 1:0 48:2 ");
    EXPECT_EQ((SizesAndSlots<ZrvPropertyValueBase, ZrvPropertyValue<float>, ZrvPropertyValue<KELRawCollfloat>,
                             ZrvPropertyValue<KELSysTSBaseUnknown*>>()),
              "8:6 16:8 16:8 16:8 ");
    EXPECT_EQ((SizesAndSlots<ZrvConstPropertiesPrototype, ZrvPropertiesPrototype, ZrvPrototypeImpl, ZrvProperties>()),
              "16:11 16:14 24:15 16:12 ");
}

template <class... Members>
std::string SlotsOf(Members... iMembers)
{
    std::string slots;
    ((slots += std::to_string(SlotOf(iMembers)) + " "), ...);
    return slots;
}

// A destructor is in two slots that have no name here.
TEST(Layout, OrderOfVirtualOperations)
{
    using Counted = KELSysTSBaseUnknown;
    using Base = ZrvPropertyValueBase;
    using Float = ZrvPropertyValue<float>;
    using Object = ZrvPropertyValue<KELSysTSBaseUnknown*>;
    using Const = ZrvConstPropertiesPrototype;
    using Set = ZrvProperties;
    EXPECT_EQ(SlotsOf(&Counted::QueryInterface, &Counted::AddRef, &Counted::Release, &Counted::GetMetaObject),
              "0 1 2 3 ");
    EXPECT_EQ(SlotsOf(&Base::GetType, &Base::Duplicate, &Base::SetValueFromProperty, &Base::IsPurelyIdenticalTo),
              "2 3 4 5 ");
    EXPECT_EQ(SlotsOf(&Float::SetValue, &Float::GetValue, &Object::SetValue, &Object::GetValue), "6 7 6 7 ");
    EXPECT_EQ(SlotsOf(&Const::GetListProperties, &Const::HasProperty, &Const::GetPropertyType,
                      &Const::GetPropertyAsType, &Const::GetPropertyPrototype),
              "6 7 8 9 10 ");
    EXPECT_EQ(
        SlotsOf(Operation<ZrvPropertiesPrototype, ZrvRC(Name, Name, Nested)>(&ZrvPropertiesPrototype::AddProperty),
                Operation<ZrvPropertiesPrototype, ZrvRC(Name, ZrvPropertyType, Nested)>(
                    &ZrvPropertiesPrototype::AddProperty),
                &ZrvPropertiesPrototype::RemoveProperty,
                Operation<ZrvPrototypeImpl, ZrvRC(Name, Nested&)>(&ZrvPrototypeImpl::GetPropertyPrototype)),
        "11 12 13 14 ");
    EXPECT_EQ(
        SlotsOf(&Set::GetPrototype, &Set::HasProperty,
                Operation<Set, int(KELSysTSListOfUnicodeString&) const>(&Set::GetListProperties),
                Operation<Set, int(KELListValKELUnicodeString&) const>(&Set::GetListProperties), &Set::GetAvailability,
                &Set::GetPropertyType, Operation<Set, ZrvRC(Name, Name, Nested)>(&Set::AddProperty),
                Operation<Set, ZrvRC(Name)>(&Set::AddProperty), &Set::GetPropertyParameters, &Set::SetFromProperties),
        "2 3 4 5 6 7 8 9 10 11 ");
}

} // namespace
