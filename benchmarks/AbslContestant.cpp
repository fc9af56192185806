#include "AbslSet.h"
#include "Contestants.h"
#include "HandWrittenContestant.h"
#include "MillionWorkloads.h"
#include "Workloads.h"

namespace {

struct AbslContestant : HandWrittenContestant<AbslMap> {
    static constexpr char kName[] = "absl::flat_hash_map";
};

} // namespace

void AddAbsl()
{
    AddSmallWorkloads<AbslContestant>();
    AddLargeWorkloads<AbslContestant>();
    AddMillionWorkloads<AbslContestant>();
}
