#include "HandWrittenContestant.h"

#include "Contestants.h"
#include "MillionWorkloads.h"
#include "ThreadWorkloads.h"
#include "Workloads.h"

namespace {

/// The baseline with setters for one type each: no variant is built and moved, a text is copied into the old one.
struct TypedSettersContestant : HandWrittenContestant<StandardMap> {
    static constexpr char kName[] = "typed setters";

    class Set : public HandWrittenContestant::Set {
    public:
        using HandWrittenContestant::Set::Set;
        bool SetInt32(const Key& iKey, std::int32_t iValue) { return m_set.Assign(iKey, iValue); }
        bool SetText(const Key& iKey, const Text& iText) { return m_set.Assign(iKey, iText); }
    };
};

} // namespace

void AddBaseline()
{
    AddSmallWorkloads<BaselineContestant>();
    AddLargeWorkloads<BaselineContestant>();
    AddMillionWorkloads<BaselineContestant>();
    AddLongestAddition<BaselineContestant>();
    AddThreadWorkloads<BaselineContestant>();

    AddWorkload("SetString40", TypedSettersContestant::kName, &SetString<TypedSettersContestant>);
    AddWorkload("SetInt32", TypedSettersContestant::kName, [](benchmark::State& ioState) {
        FilledSet<TypedSettersContestant> filled(MediaDeclarations());
        SetInt32<TypedSettersContestant>(ioState, filled.set,
                                         KeysOf<TypedSettersContestant>(MediaDeclarations(), Kind::Int32));
    });
}
