// For unordered tables of texts that are looked up by a view.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace brasquelin {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

}  // namespace brasquelin
