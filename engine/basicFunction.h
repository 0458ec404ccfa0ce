// Libraries and basic functions: a "[command]" section that becomes a line of the job list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// The action of the file that was read last. A key that a file does not give keeps its previous text.
struct FunctionAction {
    std::string type;
    std::string command;
    std::string write;
    int commandLine = 0;  // in the file; 0 when that does not give the text
    int writeLine = 0;
};
extern FunctionAction functionAction;

/// Where a basic function is called from.
struct FunctionContext {
    int level = 0;              // of the plugin variables
    std::string_view fromFile;  // the calling profile; empty for a library that the user opened
    int fromLine = 0;
};

/// Runs the file with these arguments (name=value) and returns its line for the job list. Reads the configuration
/// again. Raises the errors of reading and writing; ends the program after its message for an argument without a
/// variable.
std::string runBasicFunction(std::string_view path, const FunctionContext& context,
                             const std::vector<std::string>& arguments);

/// The same for a library whose declarations the prompt has read: they are in `functionVariables`.
std::string runPromptedLibrary(std::string_view path, const std::vector<std::string>& arguments);

/// The same for a "basicfunction." statement: the function is found by its name in the list file of the configuration
/// and `parameter` holds "variable=value" entries, separated by "||", or the value of the first variable. False when
/// the list file does not name the function.
bool runNamedFunction(std::string_view name, std::string_view parameter, const FunctionContext& context,
                      std::string& jobLine);

/// An entry of the list file of the basic functions.
struct NamedFunction {
    std::string name;
    std::string path;
    int line = 0;  // of its name
};
/// Raises the errors of reading the list file.
std::vector<NamedFunction> listFunctions(std::string_view listPath);

/// Creates the file anew with the pieces between the "||" as its lines.
void saveTextFile(std::string_view path, std::string_view text);

}  // namespace brasquelin
