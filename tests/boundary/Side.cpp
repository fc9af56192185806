#include "Side.h"

#include "RandomUse.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace {

class ThisSide final : public Side {
public:
    Maker& Own() override { return m_maker; }

    const char* UseAtRandom(Maker& ioOther, int iSeed, bool iFails) override
    {
        try {
            const Trouble trouble = iFails ? Trouble::CallBacks : Trouble::Refusals;
            ::UseAtRandom(SeededChoices(static_cast<std::uint64_t>(iSeed)), 1000, trouble, &ioOther);
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
