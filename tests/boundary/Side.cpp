#include "Side.h"

#include "RandomUse.h"

#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

/// Runs out of memory when a set asks it, which the set does under its lock.
struct ExhaustedPrototype : ZrvPrototypeImpl {
    ZrvRC HasProperty(const KELUnicodeString& iName) const override
    {
        // The platform refuses a text of this length before it looks at one byte.
        return iName == "sound" ? ZrvRC() : ZrvRC(ZrvRC::zrvEC_OK, KELUnicodeString("", std::size_t{1} << 31U));
    }
    const KELUnicodeString GetPropertyType(const KELUnicodeString&) const override { return "float"; }
};

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

    ZrvConstPropertiesPrototype* Exhausted() override { return &m_exhausted; }

    const char* PassFailures(Side& ioOther) override
    {
        ZrvProperties set(ioOther.Exhausted());
        try {
            static_cast<void>(set.AddProperty("exhausting"));
            return "a failure passes";
        } catch (const std::bad_alloc&) { // thrown by the platform, past the other module and the library
        }
        // Another thread would wait for ever if the failure had left the set locked.
        std::thread([&] { static_cast<void>(set.AddProperty("sound")); }).join();
        return set.HasProperty("sound") && !set.HasProperty("exhausting") ? "" : "the set can still be used";
    }

private:
    OwnMaker m_maker;
    ExhaustedPrototype m_exhausted;
    std::string m_difference;
};

ThisSide g_side;

} // namespace

Side* BoundarySide()
{
    return &g_side;
}
