#include "CallersCode.h"
#include "Contestants.h"
#include "HandWrittenSet.h"
#include "LargeSets.h"
#include "SmallSets.h"
#include "Threads.h"

namespace {

struct BaselineContestant : HandWrittenContestant<StandardMap> {
    static constexpr char kName[] = "baseline";
};

} // namespace

void AddBaseline()
{
    AddSmallSets<BaselineContestant>();
    AddObjects<BaselineContestant>();
    AddLargeSets<BaselineContestant>();
    AddCallersCode<BaselineContestant>();
    AddThreads<BaselineContestant>();
}
