// The built-in references: the directories of the program and of the file in hand.
#pragma once

#include <string>
#include <string_view>

#include "platform/paths.h"
#include "text/substitution.h"

namespace brasquelin {

/// What a built-in stands for.
template <typename ScriptDirectory>
std::string builtInDirectory(std::string_view name, ScriptDirectory scriptDirectory) {
    const std::string directory = name.starts_with("exepath") ? exeDirectory() : scriptDirectory();
    return name.ends_with("slash") ? doubleBackslashes(directory) : directory;
}

/// Replaces the built-ins of these names, in this order. "exepath..." stands for the short program directory,
/// "scriptpath..." for what `scriptDirectory` gives; a name that ends in "slash" for the same with doubled
/// back-slashes. Values are worked out only for names that the text refers to.
template <typename Names, typename ScriptDirectory>
void expandBuiltIns(ReferenceText& text, const Names& names, ScriptDirectory scriptDirectory) {
    if (!text.mayRefer()) return;
    for (const std::string_view name : names) {
        if (!text.refersTo(name)) continue;
        text.replace(name, builtInDirectory(name, scriptDirectory));
    }
}

}  // namespace brasquelin
