#include "Side.h"

#include "CheckRecorder.h"
#include "NineTypes.h"
#include "Zorvel.h"

#include <limits>
#include <memory>
#include <new>
#include <string>
#include <thread>

namespace {

template <class T>
Samples<T> g_samples;

template <class T>
const T& Sample()
{
    return g_samples<T>.first;
}

ZrvPropertyValueBase* NewSampleValue(ZrvPropertyType iType)
{
    switch (iType) {
#define SIDE_VALUE(id, name, type)                                                                                     \
    case zrvPT_##id:                                                                                                   \
        return new ZrvPropertyValue<type>(Sample<type>());
        ZRV_PROPERTY_TYPES(SIDE_VALUE)
#undef SIDE_VALUE
    case zrvPT_Undefined:
        break;
    }
    return nullptr;
}

// The pointers among the samples tell the modules apart; all other samples are equal everywhere.
template <class T>
bool HoldsSample(const ZrvPropertyValueBase& iValue, bool iIsOwn)
{
    const ZrvPropertyValue<T> read(Read<T>(&iValue));
    return read.IsPurelyIdenticalTo(ZrvPropertyValue<T>(Sample<T>())) == (iIsOwn || !std::is_pointer_v<T>);
}

KELUnicodeString NameOf(int iType)
{
    return ZrvPropertyTypeConv::GetAsUnicode(static_cast<ZrvPropertyType>(iType));
}

/// The platform refuses a text of this length before it looks at one byte.
void ThrowFromPlatform()
{
    const KELUnicodeString text("", static_cast<std::size_t>(std::numeric_limits<int>::max()) + 1);
}

/// Declares the nine types, and answers from the names alone; or fails when a set asks it, under the set's lock.
class Schema : public ZrvConstPropertiesPrototype {
public:
    ZrvRC GetListProperties(KELListValKELUnicodeString&) const override { return ZrvRC::zrvEC_OK; }
    ZrvRC HasProperty(const KELUnicodeString& iName) const override
    {
        if (m_isExhausted) {
            ThrowFromPlatform();
        }
        return GetPropertyAsType(iName) == zrvPT_Undefined ? ZrvRC::zrvEC_Error : ZrvRC::zrvEC_OK;
    }
    const KELUnicodeString GetPropertyType(const KELUnicodeString& iName) const override
    {
        return NameOf(GetPropertyAsType(iName));
    }
    ZrvPropertyType GetPropertyAsType(const KELUnicodeString& iName) const override
    {
        return ZrvPropertyTypeConv::GetEnum(iName);
    }
    ZrvConstPropertiesPrototype* GetPropertyPrototype(const KELUnicodeString&) const override { return nullptr; }

    bool m_isExhausted = false;
};

class OddValue : public ZrvPropertyValue<KELINT32> {
public:
    using ZrvPropertyValue::ZrvPropertyValue;
    KELINT32 GetValue() const override { return ZrvPropertyValue::GetValue() + 1; }
};

/// What did not hold, line by line.
struct Findings {
    void Expect(bool iHolds, const char* iWhat, const KELUnicodeString& iOf = "", int iLine = __builtin_LINE())
    {
        if (!iHolds) {
            text += "line " + std::to_string(iLine) + ": " + iWhat + " " + iOf.ConvertToChar() + "\n";
        }
    }
    std::string text;
};

template <class Action>
bool RunsOutOfMemory(Action iAction)
{
    try {
        iAction();
    } catch (const std::bad_alloc&) {
        return true;
    }
    return false;
}

class ThisSide : public Side {
public:
    ZrvProperties* MakeSet() override
    {
        auto set = std::make_unique<ZrvProperties>();
        for (int type = 0; type < zrvPT_Undefined; ++type) {
            const std::unique_ptr<ZrvPropertyValueBase> value(MakeValue(static_cast<ZrvPropertyType>(type)));
            set->AddProperty(NameOf(type), NameOf(type), nullptr);
            set->SetProperty(NameOf(type), *value);
        }
        return set.release();
    }

    ZrvPropertyValueBase* MakeValue(ZrvPropertyType iType) override { return NewSampleValue(iType); }
    ZrvPropertyValueBase* MakeOddValue(KELINT32 iHeld) override { return new OddValue(iHeld); }
    ZrvConstPropertiesPrototype* MakePrototype() override { return new Schema; }
    void RunOutOfMemory() override { ThrowFromPlatform(); }
    KELUINT32 References() override { return CountOf(*Sample<KELSysTSBaseUnknown*>()); }

    const char* Check(int iCheck, Side& ioOther) override
    {
        static constexpr void (*kChecks[])(Side&, Findings&) = {&MadeThereDeletedHere, &TypedValues, &DerivedPrototype,
                                                                &DerivedValue, &AllocationFailure};
        static_assert(std::size(kChecks) == kSideCheckCount);
        m_findings = {};
        kChecks[iCheck](ioOther, m_findings);
        m_findings.Expect(References() == 1 && ioOther.References() == 1, "all references are given back");
        return m_findings.text.c_str();
    }

private:
    static void MadeThereDeletedHere(Side& ioOther, Findings& ioFindings)
    {
        std::unique_ptr<ZrvProperties> theirs(ioOther.MakeSet());
        const ZrvProperties copy(*theirs);
        theirs.reset();
        KELListValKELUnicodeString names;
        ioFindings.Expect(copy.GetListProperties(names) == zrvPT_Undefined, "a copy has all nine properties");
        for (int position = 1; position <= names.Size(); ++position) {
            const KELUnicodeString& name = names[position];
            const std::unique_ptr<ZrvPropertyValueBase> made(ioOther.MakeValue(ZrvPropertyTypeConv::GetEnum(name)));
            const std::unique_ptr<ZrvPropertyValueBase> duplicateOfTheirs(made->Duplicate());
            const std::unique_ptr<ZrvPropertyValueBase> duplicateOfHeld(copy.GetProperty(name)->Duplicate());
            ioFindings.Expect(duplicateOfHeld->IsPurelyIdenticalTo(*duplicateOfTheirs), "duplicates are equal:", name);
        }
    }

    static void TypedValues(Side& ioOther, Findings& ioFindings)
    {
        const std::unique_ptr<ZrvProperties> theirs(ioOther.MakeSet());
#define SIDE_CHECK(id, name, type) TypedValue<type>(ioOther, *theirs, ioFindings);
        ZRV_PROPERTY_TYPES(SIDE_CHECK)
#undef SIDE_CHECK
    }

    // The value class has three copies here: this module's, the other side's, and the library's, which a set holds.
    template <class T>
    static void TypedValue(Side& ioOther, ZrvProperties& ioTheirs, Findings& ioFindings)
    {
        constexpr ZrvPropertyType kType = ZrvPropertyValue<T>::kType;
        const KELUnicodeString name = NameOf(kType);
        const std::unique_ptr<ZrvPropertyValueBase> made(ioOther.MakeValue(kType));
        const ZrvPropertyValueBase& held = *ioTheirs.GetProperty(name);
        ZrvPropertyValue<T> mine(Sample<T>());

        ioFindings.Expect(made->GetType() == name && held.GetType() == name, "the type's name:", name);
        ioFindings.Expect(HoldsSample<T>(*made, false), "a value made there, read here:", name);
        ioFindings.Expect(HoldsSample<T>(held, false), "a property set there, read here:", name);
        ioFindings.Expect(made->IsPurelyIdenticalTo(held) && held.IsPurelyIdenticalTo(*made), "equal there:", name);
        ioFindings.Expect(mine.IsPurelyIdenticalTo(held) == !std::is_pointer_v<T>, "equal here and there:", name);

        ioFindings.Expect(ioTheirs.SetProperty(name, mine) == ZrvRC::zrvEC_OK, "a property set from here:", name);
        ioFindings.Expect(HoldsSample<T>(held, true), "... holds what it was given:", name);
        ioFindings.Expect(mine.SetValueFromProperty(*made) == ZrvRC::zrvEC_OK, "taken over from there:", name);
        ioFindings.Expect(HoldsSample<T>(mine, false), "... is theirs:", name);
        ioFindings.Expect(made->SetValueFromProperty(held) == ZrvRC::zrvEC_OK, "taken over there:", name);
        ioFindings.Expect(HoldsSample<T>(*made, true), "... is ours:", name);
    }

    static void DerivedPrototype(Side& ioOther, Findings& ioFindings)
    {
        for (ZrvConstPropertiesPrototype* prototype : {BoundarySide()->MakePrototype(), ioOther.MakePrototype()}) {
            {
                ZrvProperties set(prototype);
                for (int type = 0; type < zrvPT_Undefined; ++type) {
                    ioFindings.Expect(set.AddProperty(NameOf(type)) == ZrvRC::zrvEC_OK, "declared:", NameOf(type));
                    ioFindings.Expect(set.GetPropertyType(NameOf(type)) == NameOf(type), "typed:", NameOf(type));
                }
                CheckRecorder recorder;
                ioFindings.Expect(set.AddProperty("other").IsError(), "not declared");
                ioFindings.Expect(!recorder.Take().empty(), "... and reported to this side's handler");
                ZrvConstPropertiesPrototype* got = nullptr;
                set.GetPrototype(got);
                ioFindings.Expect(got == prototype && CountOf(*prototype) == 3, "the set hands its prototype out");
                got->Release();
            }
            ioFindings.Expect(prototype->Release() == 0, "the set has given its reference back");
        }
    }

    static void DerivedValue(Side& ioOther, Findings& ioFindings)
    {
        for (Side* side : {BoundarySide(), &ioOther}) {
            const std::unique_ptr<ZrvPropertyValueBase> odd(side->MakeOddValue(41));
            const ZrvPropertyValue<KELINT32> even(42);
            ZrvProperties set;
            set.AddProperty("number", "KELINT32", nullptr);
            ioFindings.Expect(set.SetProperty("number", *odd) == ZrvRC::zrvEC_OK, "a derived value is taken");
            ioFindings.Expect(Read<KELINT32>(set.GetProperty("number")) == 42, "... by what it answers");
            ioFindings.Expect(even.IsPurelyIdenticalTo(*odd) && odd->IsPurelyIdenticalTo(even), "... and compared");
            odd->SetValueFromProperty(*set.GetProperty("number"));
            ioFindings.Expect(Read<KELINT32>(odd.get()) == 43, "a derived value takes what the library holds");
        }
    }

    static void AllocationFailure(Side& ioOther, Findings& ioFindings)
    {
        ioFindings.Expect(RunsOutOfMemory([] { ThrowFromPlatform(); }), "thrown by the platform, caught here");
        ioFindings.Expect(RunsOutOfMemory([&] { ioOther.RunOutOfMemory(); }), "passed through the other side");
        Schema schema;
        schema.m_isExhausted = true;
        ZrvProperties set(&schema);
        ioFindings.Expect(RunsOutOfMemory([&] { set.AddProperty("float"); }), "passed through the library");
        schema.m_isExhausted = false;
        // Another thread would wait for ever if the failure had left the set locked.
        std::thread([&] { set.AddProperty("double"); }).join();
        ioFindings.Expect(!set.HasProperty("float") && set.HasProperty("double"), "the set can still be used");
    }

    Findings m_findings;
};

ThisSide g_side;

} // namespace

Side* BoundarySide()
{
    return &g_side;
}
