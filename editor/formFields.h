// What the forms of the editor show of lines that they made, or that were written as they make them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/newLines.h"

namespace brasquelin {

/// The fields of a declaration, and how many of its lines they stand for. Nothing for what no form makes.
struct DeclaredFields {
    VariableFields fields;
    std::size_t lines = 0;
};
std::optional<DeclaredFields> fieldsOfDeclaration(const std::vector<std::string>& group);

/// The label and the command of an entry that combEntry made; nothing for another one.
struct CombParts {
    std::string label;
    std::string command;
};
std::optional<CombParts> partsOfCombEntry(std::string_view entry);

/// Which of the entries a line calls.
std::optional<std::size_t> entryOfCall(const std::vector<CallableEntry>& entries, std::string_view line);

/// What the call gives to a plugin or basic function of this name.
std::string parameterOfCall(std::string_view entry, std::string_view line);

/// An attribute line of a call: ".name=value".
struct CallValue {
    std::string name;
    std::string value;
};
CallValue valueOfCall(std::string_view line);

/// The four values of a loop; those that are missing are empty.
std::vector<std::string> valuesOfLoop(const std::vector<std::string>& group);

}  // namespace brasquelin
