// The references "$name$" that the editor's dialogs offer, each collection in its own order and letter case.
#pragma once

#include <string>
#include <vector>

#include "editor/profileDocument.h"

namespace brasquelin {

/// For the values of a loop.
std::vector<std::string> loopReferences(const ProfileDocument& document);

/// For editing a command line.
std::vector<std::string> commandReferences(const ProfileDocument& document);

/// For a new variable: built-ins, plugin variables, global variables.
std::vector<std::string> variableReferences();

/// For the values of a call: built-ins, plugin variables, the document's variables and loop variables.
std::vector<std::string> callReferences(const ProfileDocument& document);

}  // namespace brasquelin
