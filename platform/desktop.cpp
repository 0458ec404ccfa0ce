#include "platform/desktop.h"

#include "platform/console/consoleDesktop.h"

namespace brasquelin {

namespace {

Desktop*& current() {
    static ConsoleDesktop console;
    static Desktop* desktop = &console;
    return desktop;
}

}  // namespace

void Desktop::showMessage(std::string_view text, std::string_view title, Icon icon) {
    if (icon == Icon::critical) noteFailure();
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
