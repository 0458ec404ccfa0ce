#include "app/mainCommands.h"

#include "app/batchFile.h"
#include "app/openFile.h"
#include "platform/desktop.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

constexpr std::array<MainCommand, 8> commands{{
    {"mnuAddLibrary", "Add Library", "Add Library", "add library", ""},
    {"mnuAddProfile", "Add Profile", "Add Profile", "add profile", "tiretun"},
    {"mnuClearJoblist", "Clear JobList", "Clear Joblist", "clear joblist", "tiretdeux"},
    {"mnuExecLine", "Execute this line", "Execute Line", "execute line", ""},
    {"mnuExecJoblist", "Execute Joblist", "Execute Joblist", "execute joblist", "tirettrois"},
    {"mnuCreateProfile", "Profile Editor", "Profile Editor", "profile editor", ""},
    {"mnuOptions", "Options", "Options", "options", ""},
    {"mnuAbout", "About", "About", "about", ""},
}};

void openEditor() {
    desktop().showWindow(ProgramWindow::createProfile, false);
    desktop().unloadWindow(ProgramWindow::main);
}

}  // namespace

const std::array<MainCommand, 8>& mainCommands() {
    return commands;
}

void runMainCommand(std::string_view key, std::optional<std::size_t> selected) {
    if (key == "add library") return desktop().showWindow(ProgramWindow::addFunction, true);
    if (key == "add profile") return desktop().showWindow(ProgramWindow::addProfile, true);
    if (key == "clear joblist") return clearJobList();
    if (key == "execute line") return executeLine(selected);
    if (key == "execute joblist") return executeJobList();
    if (key == "profile editor") return openEditor();
    if (key == "options") return desktop().showWindow(ProgramWindow::options, true);
    if (key == "about") return desktop().showWindow(ProgramWindow::about, true);
}

bool mainCommandsEnabled() {
    return !runState.running;
}

void mainWindowUnloaded() {
    if (!desktop().isVisible(ProgramWindow::createProfile)) throw EndProgram(0);
}

}  // namespace brasquelin
