#ifndef AbslSet_H
#define AbslSet_H

#include "HandWrittenSet.h"

#include <absl/container/flat_hash_map.h>
#include <absl/hash/hash.h>
#include <absl/strings/string_view.h>

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

extern template class HandWrittenSet<AbslMap>;

#endif
