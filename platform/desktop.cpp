#include "platform/desktop.h"

#include <array>

#include "platform/console/consoleDesktop.h"

namespace brasquelin {

namespace {

Desktop*& current() {
    static ConsoleDesktop console;
    static Desktop* desktop = &console;
    return desktop;
}

}  // namespace

std::string_view nameOf(ProgramWindow window) {
    constexpr std::array<std::string_view, 9> names{"frmMain",   "frmAddProfile", "frmAddFunction",
                                                    "frmOption", "frmAbout",      "frmCreateProfile",
                                                    "frmAddVar", "frmAddCommand", "frmPreview"};
    return names[static_cast<std::size_t>(window)];
}

void Desktop::showMessage(std::string_view text, std::string_view title, Icon icon) {
    if (icon == Icon::critical) noteFailure(text);
    presentMessage(text, title, icon);
}

Desktop& desktop() {
    return *current();
}

void setDesktop(Desktop& newDesktop) {
    current() = &newDesktop;
}

void showCritical(std::string_view text, std::string_view title) {
    desktop().showMessage(text, title, Icon::critical);
}

}  // namespace brasquelin
