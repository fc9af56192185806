#include "HandWrittenSetImpl.h"

#include <array>

namespace {

template <std::size_t... Is>
constexpr auto MakeDefaults(std::index_sequence<Is...> /*iAlternatives*/)
{
    return std::array{+[] { return HandWrittenValue(std::in_place_index<Is>); }...};
}

constexpr auto g_defaults = MakeDefaults(std::make_index_sequence<std::variant_size_v<HandWrittenValue>>());

} // namespace

HandWrittenValue DefaultValue(std::size_t iAlternative)
{
    return g_defaults[iAlternative]();
}

template class HandWrittenSet<StandardMap>;
template bool HandWrittenSet<StandardMap>::Assign(std::string_view, const std::int32_t&);
template bool HandWrittenSet<StandardMap>::Assign(std::string_view, const std::string&);
