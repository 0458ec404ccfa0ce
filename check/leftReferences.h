// References that stand in a finished text.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace brasquelin {

struct Reference {
    std::size_t begin = 0;  // of the first dollar sign, in bytes
    std::string_view name;
};

/// What stands between two dollar signs and may be a name: letters, digits, "_", "-" and "." only, and no digits
/// alone. A dollar sign belongs to one reference.
std::vector<Reference> leftReferences(std::string_view text);

}  // namespace brasquelin
