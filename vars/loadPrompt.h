// Opening a profile or library: its declarations become a prompt, which is shown, or confirmed unseen.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vars/promptForm.h"

namespace brasquelin {

/// What the opening of a file depends on.
struct PromptOptions {
    std::vector<std::string> presets;  // values from the command line, the first for row 0
    bool namedOnCommandLine = false;   // the prompt is shown without blocking, and closing it ends the program
    bool replaying = false;            // list mode: a library without variables is run at once
    std::function<bool()> mayConfirm;  // see PromptForm
    std::function<void(const std::vector<std::string>& values)> confirmed;
    std::function<void()> runAtOnce;  // what a profile without variables starts instead
};

/// Reads and prompts for a profile. A profile without variables is run at once. Ends the program for a missing
/// file, a first line that is too short and an invalid type text, each after its message.
void loadProfile(const std::string& path, PromptOptions options);

/// The same for a library.
void loadFunction(const std::string& path, PromptOptions options);

/// Drops what is kept of the last file for the next line of a list.
void forgetUnseenForm();

/// The title in line 1, blanks turned into "_". Ends the program after its message for a line that is too
/// short.
std::string readProfileTitle(const std::string& path);
std::string readFunctionTitle(const std::string& path);

/// OK. False when it may not be confirmed now; the prompt stays then. Stores the declarations, and a profile's values
/// for level 1, and starts what was to be confirmed. Ends the program after its message for a row of unknown type.
bool confirmPrompt(PromptForm& form);

/// True when OK would be refused, after the message.
bool refusesConfirmation(const PromptForm& form);

/// The window was closed by its close box (not by Cancel, OK or the program): ends the program when the file was named
/// on the command line.
void promptClosed(const PromptForm& form);

}  // namespace brasquelin
