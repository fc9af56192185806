#include "Contestants.h"
#include "HandWrittenSet.h"
#include "LargeSets.h"
#include "SmallSets.h"

#include <absl/container/flat_hash_map.h>
#include <absl/hash/hash.h>
#include <absl/strings/string_view.h>

namespace {

/// Abseil's own hash, for texts in the standard's view: packages of Abseil may be built with a view of their own.
struct AbslHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view iText) const
    {
        return absl::Hash<absl::string_view>()(absl::string_view(iText.data(), iText.size()));
    }
};

/// Open addressing.
struct AbslMap {
    template <class T>
    using Map = absl::flat_hash_map<std::string, T, AbslHash, std::equal_to<>>;
};

struct AbslContestant : HandWrittenContestant<AbslMap> {
    static constexpr char kName[] = "absl::flat_hash_map";
};

} // namespace

void AddAbsl()
{
    AddSmallSets<AbslContestant>();
    AddLargeSets<AbslContestant>();
}
