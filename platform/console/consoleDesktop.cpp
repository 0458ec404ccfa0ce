#include "platform/console/consoleDesktop.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace brasquelin {

namespace {

void tell(std::string_view title, std::string_view text) {
    std::string line = std::string(title) + ": " + std::string(text) + "\n";
    line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void ConsoleDesktop::presentMessage(std::string_view text, std::string_view title, Icon /*icon*/) {
    tell(title, text);
}

bool ConsoleDesktop::askYesNo(std::string_view text, std::string_view title) {
    tell(title, std::string(text) + " (cannot be asked without a display; taken as No)");
    noteFailure();
    return false;
}

std::optional<std::string> ConsoleDesktop::askText(std::string_view prompt, std::string_view title,
                                                   std::string_view /*defaultText*/) {
    tell(title, std::string(prompt) + " (cannot be asked without a display)");
    noteFailure();
    return std::nullopt;
}

std::string ConsoleDesktop::askFile(const FileDialogRequest& request) {
    tell("Brasquelin", request.title + " (no file can be chosen without a display)");
    noteFailure();
    return {};
}

void ConsoleDesktop::copyToClipboard(std::string_view /*text*/) {}

void ConsoleDesktop::openLink(std::string_view target) {
    tell("Brasquelin", std::string(target) + " (cannot be opened without a display)");
    noteFailure();
}

void ConsoleDesktop::showWindow(std::string_view name, bool /*modal*/) {
    tell("Brasquelin", "The window " + std::string(name) + " needs a display.");
    noteFailure();
}

void ConsoleDesktop::unloadWindow(std::string_view /*name*/) {}

bool ConsoleDesktop::isVisible(std::string_view /*name*/) const {
    return false;
}

void ConsoleDesktop::processPendingEvents() {}

}  // namespace brasquelin
