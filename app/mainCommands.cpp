#include "app/mainCommands.h"

#include <algorithm>

#include "app/batchFile.h"
#include "app/openFile.h"
#include "platform/desktop.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

void openEditor() {
    desktop().showWindow(ProgramWindow::createProfile, false);
    desktop().unloadWindow(ProgramWindow::main);
}

using Selected = std::optional<std::size_t>;

// clang-format off
constexpr std::array<MainCommand, 8> commands{{
    {"mnuAddLibrary", "Add Library", "Add Library", "add library", "Ctrl+L", "", Picture::addLibrary,
     [](Selected) { desktop().showWindow(ProgramWindow::addFunction, true); }},
    {"mnuAddProfile", "Add Profile", "Add Profile", "add profile", "Ctrl+P", "tiretun", Picture::addProfile,
     [](Selected) { desktop().showWindow(ProgramWindow::addProfile, true); }},
    {"mnuClearJoblist", "Clear JobList", "Clear Joblist", "clear joblist", "", "tiretdeux", Picture::clearJoblist,
     [](Selected) { clearJobList(); }},
    {"mnuExecLine", "Execute this line", "Execute Line", "execute line", "Ctrl+E", "", Picture::executeLine,
     executeLine},
    {"mnuExecJoblist", "Execute Joblist", "Execute Joblist", "execute joblist", "F5", "tirettrois",
     Picture::executeJoblist, [](Selected) { executeJobList(); }},
    {"mnuCreateProfile", "Profile Editor", "Profile Editor", "profile editor", "", "", Picture::profileEditor,
     [](Selected) { openEditor(); }},
    {"mnuOptions", "Options", "Options", "options", "", "", Picture::options,
     [](Selected) { desktop().showWindow(ProgramWindow::options, true); }},
    {"mnuAbout", "About", "About", "about", "Shift+F1", "", Picture::about,
     [](Selected) { desktop().showWindow(ProgramWindow::about, true); }},
}};
// clang-format on

}  // namespace

const std::array<MainCommand, 8>& mainCommands() {
    return commands;
}

void runMainCommand(std::string_view key, std::optional<std::size_t> selected) {
    const auto* command = std::find_if(commands.begin(), commands.end(), [key](const auto& c) { return c.key == key; });
    if (command != commands.end()) command->run(selected);
}

bool mainCommandsEnabled() {
    return !runState.running;
}

void mainWindowUnloaded() {
    if (!desktop().isVisible(ProgramWindow::createProfile)) throw EndProgram(0);
}

}  // namespace brasquelin
