#include "Side.h"

#include "Maker.h"
#include "RandomUse.h"

#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

/// The platform refuses a text of this length before it looks at one byte.
void ThrowFromPlatform()
{
    const KELUnicodeString text("", std::size_t{1} << 31U);
}

/// Fails when a set asks it, which the set does under its lock.
struct ExhaustedPrototype : ZrvPrototypeImpl {
    ZrvRC HasProperty(const KELUnicodeString& iName) const override
    {
        iName == "exhausting" ? ThrowFromPlatform() : void();
        return ZrvPrototypeImpl::HasProperty(iName);
    }
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

class ThisSide final : public Side {
public:
    Maker& Own() override { return m_maker; }

    const char* UseAtRandom(Maker& ioOther, int iSeed) override
    {
        try {
            ::UseAtRandom(SeededChoices(static_cast<std::uint64_t>(iSeed)), 1000, Trouble::Refusals, &ioOther);
        } catch (const std::logic_error& difference) {
            return (m_difference = difference.what()).c_str();
        }
        return "";
    }

    const char* PassValues(Maker& ioOther) override
    {
        for (int type = 0; type < zrvPT_Undefined; ++type) {
            const ValueModel contents = DefaultValue(g_typeNames[type]);
            const std::unique_ptr<ZrvPropertyValueBase> here(m_maker.MakeValue(contents, false));
            const std::unique_ptr<ZrvPropertyValueBase> there(ioOther.MakeValue(contents, false));
            const std::unique_ptr<ZrvPropertyValueBase> copy(there->Duplicate());
            if (copy->SetValueFromProperty(*here).IsError() || !here->IsPurelyIdenticalTo(*copy)) {
                return g_typeNames[type].ConvertToChar();
            }
        }
        return "";
    }

    void RunOutOfMemory() override { ThrowFromPlatform(); }

    const char* PassFailures(Side& ioOther) override
    {
        ExhaustedPrototype prototype;
        static_cast<void>(prototype.AddProperty("sound", zrvPT_Float, nullptr));
        ZrvProperties set(&prototype);
        if (!RunsOutOfMemory(&ThrowFromPlatform) || !RunsOutOfMemory([&] { ioOther.RunOutOfMemory(); })) {
            return "a failure reaches the module that is to catch it";
        }
        if (!RunsOutOfMemory([&] { static_cast<void>(set.AddProperty("exhausting")); })) {
            return "a failure passes through the library";
        }
        // Another thread would wait for ever if the failure had left the set locked.
        std::thread([&] { static_cast<void>(set.AddProperty("sound")); }).join();
        return set.HasProperty("sound") && !set.HasProperty("exhausting") ? "" : "the set can still be used";
    }

private:
    OwnMaker m_maker;
    std::string m_difference;
};

ThisSide g_side;

} // namespace

Side* BoundarySide()
{
    return &g_side;
}
