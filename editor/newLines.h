// The lines that the editor's dialogs append, as pure functions of their fields.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/profileDocument.h"

namespace brasquelin {

/// What the dialog for a new variable holds.
struct VariableFields {
    std::string name = "newvar";
    std::string type = "Text";
    std::vector<std::string> listChoices;
    std::vector<std::string> combEntries;
    std::string filter = "All Files|*.*";
    std::string info = "none";
    std::string defaultValue;
};

/// The choices of the type field.
const std::vector<std::string>& variableTypes();

/// "List(a||b)" and the like; empty for a type that is none of the choices.
std::string typeSpecOf(const VariableFields& fields);

/// Name, type, info and default: four lines.
std::vector<std::string> declarationLines(const VariableFields& fields);

/// The entry of a comb that needs a command is label[command].
std::string combEntry(std::string_view label, std::string_view command);

/// The five lines of a loop; none when a field is empty.
std::vector<std::string> loopLines(const std::string& name, const std::string& start, const std::string& end,
                                   const std::string& step);

/// A chosen file as the include list writes it: "$exepath$" or "$scriptpath$" in front where it lies below them.
std::string includePath(std::string_view chosen, std::string_view profilePath);

/// Something that a profile can call, as the command dialog offers it.
struct CallableEntry {
    std::string name;  // "BasicFunction.copy", "Plugin.zip" or the title of an include
    std::string path;  // of an include; empty otherwise
};

/// Includes that exist, basic functions of the list file, plugins: in this order. A file that cannot be read is
/// reported and left out.
std::vector<CallableEntry> callableEntries(const ProfileDocument& document);

/// What asks for the parameter of a plugin or basic function; empty for an include, which takes variables.
std::string_view parameterPrompt(std::string_view entry);

/// A value that a call of an include gives.
struct CallParameter {
    std::string name;
    std::string start;  // the declared default, as a call writes it
    std::string about;  // lines: the information, the type, the choices
};
/// Those that a call of the include asks for, in order. Empty, after a message, for a bad declaration. Raises the error
/// of opening the file.
std::vector<CallParameter> parametersOfInclude(const std::string& path);

}  // namespace brasquelin
