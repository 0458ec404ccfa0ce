// References that an expansion leaves, and names that are nearly right.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
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

/// The same without those that `expand` replaces.
std::vector<Reference> leftReferences(std::string_view text,
                                      const std::function<std::string(const std::string&)>& expand);

/// The name that a slip of the hand may have turned into this one; empty when none is that near.
std::string nearestName(std::string_view name, const std::vector<std::string>& names);

/// "; did you mean '...'?", or nothing without a nearest name.
std::string suggestion(std::string_view nearest);

}  // namespace brasquelin
