#include "KELListValKELUnicodeString.h"
#include "KELSysTSListOfUnicodeString.h"
#include "Zorvel.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <map>
#include <string>
#include <type_traits>
#include <utility>

namespace {

// Callers that were compiled earlier rely on these sizes and slots: a change here needs a new major version.
// A destructor is in two slots that have no name here; a class that overrides nothing new shows its base's slots.
constexpr char kExpected[] = R"(
KELUnicodeString: 8 bytes, 0 slots
KELRawCollfloat: 8 bytes, 0 slots
KELListValKELUnicodeString: 24 bytes, 0 slots
KELSysTSListOfUnicodeString: 24 bytes, 0 slots
KELSysElapseTime: 8 bytes, 0 slots
KELSysTSBaseUnknown: 16 bytes, 6 slots
  0 QueryInterface
  1 AddRef
  2 Release
  3 GetMetaObject
ZrvRC: 16 bytes, 0 slots
ZrvPropertyTypeConv: 1 bytes, 0 slots
ZrvDebugServices: 1 bytes, 0 slots
ZrvFPSMeasure: 48 bytes, 2 slots
ZrvPropertyValueBase: 8 bytes, 6 slots
  2 GetType
  3 Duplicate
  4 SetValueFromProperty
  5 IsPurelyIdenticalTo
ZrvPropertyValue<float>: 16 bytes, 8 slots
  6 SetValue
  7 GetValue
ZrvPropertyValue<KELRawCollfloat>: 16 bytes, 8 slots
  6 SetValue
  7 GetValue
ZrvPropertyValue<KELSysTSBaseUnknown*>: 16 bytes, 8 slots
  6 SetValue
  7 GetValue
ZrvConstPropertiesPrototype: 16 bytes, 11 slots
  6 GetListProperties
  7 HasProperty
  8 GetPropertyType
  9 GetPropertyAsType
  10 GetPropertyPrototype
ZrvPropertiesPrototype: 16 bytes, 14 slots
  11 AddProperty by type name
  12 AddProperty by enumerator
  13 RemoveProperty
ZrvPrototypeImpl: 24 bytes, 15 slots
  14 GetPropertyPrototype with result
ZrvProperties: 16 bytes, 12 slots
  2 GetPrototype
  3 HasProperty
  4 GetListProperties KELSysTSListOfUnicodeString
  5 GetListProperties KELListValKELUnicodeString
  6 GetAvailability
  7 GetPropertyType
  8 AddProperty with type
  9 AddProperty
  10 GetPropertyParameters
  11 SetFromProperties
)";

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

/// Describes classes in the form of the list above.
class Description {
public:
    template <class C>
    Description& Class(const char* iName)
    {
        Flush();
        m_text += std::string(iName) + ": " + std::to_string(sizeof(C)) + " bytes, " +
                  std::to_string(SlotOf(&Longer<C>::End)) + " slots\n";
        return *this;
    }

    template <class Member>
    Description& Operation(const char* iName, Member iMember)
    {
        m_operations.emplace(SlotOf(iMember), iName);
        return *this;
    }

    std::string Text()
    {
        Flush();
        return m_text;
    }

private:
    void Flush()
    {
        for (const auto& [slot, name] : std::exchange(m_operations, {})) {
            m_text += "  " + std::to_string(slot) + " " + name + "\n";
        }
    }

    std::string m_text = "\n";
    std::multimap<std::size_t, std::string> m_operations;
};

template <class T>
void DescribeTypedValue(Description& ioDescription, const char* iName)
{
    ioDescription.Class<ZrvPropertyValue<T>>(iName)
        .Operation("SetValue", &ZrvPropertyValue<T>::SetValue)
        .Operation("GetValue", &ZrvPropertyValue<T>::GetValue);
}

void DescribePrototypes(Description& ioDescription)
{
    using Name = const KELUnicodeString&;
    using Nested = ZrvConstPropertiesPrototype*;
    using Const = ZrvConstPropertiesPrototype;
    using Builder = ZrvPropertiesPrototype;
    ioDescription.Class<Const>("ZrvConstPropertiesPrototype")
        .Operation("GetListProperties", &Const::GetListProperties)
        .Operation("HasProperty", &Const::HasProperty)
        .Operation("GetPropertyType", &Const::GetPropertyType)
        .Operation("GetPropertyAsType", &Const::GetPropertyAsType)
        .Operation("GetPropertyPrototype", &Const::GetPropertyPrototype);
    ioDescription.Class<Builder>("ZrvPropertiesPrototype")
        .Operation("AddProperty by type name",
                   static_cast<ZrvRC (Builder::*)(Name, Name, Nested)>(&Builder::AddProperty))
        .Operation("AddProperty by enumerator",
                   static_cast<ZrvRC (Builder::*)(Name, ZrvPropertyType, Nested)>(&Builder::AddProperty))
        .Operation("RemoveProperty", &Builder::RemoveProperty);
    ioDescription.Class<ZrvPrototypeImpl>("ZrvPrototypeImpl")
        .Operation("GetPropertyPrototype with result",
                   static_cast<ZrvRC (ZrvPrototypeImpl::*)(Name, Nested&)>(&ZrvPrototypeImpl::GetPropertyPrototype));
}

void DescribeSet(Description& ioDescription)
{
    using Set = ZrvProperties;
    using Name = const KELUnicodeString&;
    using Nested = ZrvConstPropertiesPrototype*;
    ioDescription.Class<Set>("ZrvProperties")
        .Operation("GetPrototype", &Set::GetPrototype)
        .Operation("HasProperty", &Set::HasProperty)
        .Operation("GetListProperties KELSysTSListOfUnicodeString",
                   static_cast<int (Set::*)(KELSysTSListOfUnicodeString&) const>(&Set::GetListProperties))
        .Operation("GetListProperties KELListValKELUnicodeString",
                   static_cast<int (Set::*)(KELListValKELUnicodeString&) const>(&Set::GetListProperties))
        .Operation("GetAvailability", &Set::GetAvailability)
        .Operation("GetPropertyType", &Set::GetPropertyType)
        .Operation("AddProperty with type", static_cast<ZrvRC (Set::*)(Name, Name, Nested)>(&Set::AddProperty))
        .Operation("AddProperty", static_cast<ZrvRC (Set::*)(Name)>(&Set::AddProperty))
        .Operation("GetPropertyParameters", &Set::GetPropertyParameters)
        .Operation("SetFromProperties", &Set::SetFromProperties);
}

TEST(Layout, SizesAndOrderOfVirtualOperations)
{
    Description description;
    description.Class<KELUnicodeString>("KELUnicodeString");
    description.Class<KELRawCollfloat>("KELRawCollfloat");
    description.Class<KELListValKELUnicodeString>("KELListValKELUnicodeString");
    description.Class<KELSysTSListOfUnicodeString>("KELSysTSListOfUnicodeString");
    description.Class<KELSysElapseTime>("KELSysElapseTime");
    description.Class<KELSysTSBaseUnknown>("KELSysTSBaseUnknown")
        .Operation("QueryInterface", &KELSysTSBaseUnknown::QueryInterface)
        .Operation("AddRef", &KELSysTSBaseUnknown::AddRef)
        .Operation("Release", &KELSysTSBaseUnknown::Release)
        .Operation("GetMetaObject", &KELSysTSBaseUnknown::GetMetaObject);
    description.Class<ZrvRC>("ZrvRC");
    description.Class<ZrvPropertyTypeConv>("ZrvPropertyTypeConv");
    description.Class<ZrvDebugServices>("ZrvDebugServices");
    description.Class<ZrvFPSMeasure>("ZrvFPSMeasure");
    description.Class<ZrvPropertyValueBase>("ZrvPropertyValueBase")
        .Operation("GetType", &ZrvPropertyValueBase::GetType)
        .Operation("Duplicate", &ZrvPropertyValueBase::Duplicate)
        .Operation("SetValueFromProperty", &ZrvPropertyValueBase::SetValueFromProperty)
        .Operation("IsPurelyIdenticalTo", &ZrvPropertyValueBase::IsPurelyIdenticalTo);
    DescribeTypedValue<float>(description, "ZrvPropertyValue<float>");
    DescribeTypedValue<KELRawCollfloat>(description, "ZrvPropertyValue<KELRawCollfloat>");
    DescribeTypedValue<KELSysTSBaseUnknown*>(description, "ZrvPropertyValue<KELSysTSBaseUnknown*>");
    DescribePrototypes(description);
    DescribeSet(description);
    EXPECT_EQ(description.Text(), kExpected);
}

} // namespace
