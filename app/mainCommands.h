// The commands of the main window, offered by its menu, its pop-up menu and its toolbar.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/picture.h"

namespace brasquelin {

struct MainCommand {
    std::string_view menuItem;
    std::string_view caption;  // in both menus
    std::string_view toolbarCaption;
    std::string_view key;              // of the toolbar button
    std::string_view shortcut;         // such as "Ctrl+L"; empty without one
    std::string_view separatorBehind;  // the name of the separator that follows; empty without one
    Picture picture;
    void (*run)(std::optional<std::size_t> selected);  // the selected line of the job list
};

/// In the order in which they are shown.
const std::array<MainCommand, 8>& mainCommands();

/// Runs the command whose key is exactly this; another key does nothing. Raises the errors of the command, and
/// EndProgram.
void runMainCommand(std::string_view key, std::optional<std::size_t> selected);

/// False while a file is being run: the tables that it works on must stay as they are.
bool mainCommandsEnabled();

/// The main window goes: the program ends unless the profile editor has taken its place.
void mainWindowUnloaded();

}  // namespace brasquelin
