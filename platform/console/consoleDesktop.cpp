#include "platform/console/consoleDesktop.h"

#include <string>

#include "platform/standardStreams.h"

namespace brasquelin {

void ConsoleDesktop::presentMessage(std::string_view text, std::string_view title, Icon /*icon*/) {
    writeMessage(title, text);
}

void ConsoleDesktop::decline(std::string_view title, const std::string& text) {
    writeMessage(title, text);
    noteFailure(text);
}

bool ConsoleDesktop::askYesNo(std::string_view text, std::string_view title) {
    decline(title, std::string(text) + " (cannot be asked without a display; taken as No)");
    return false;
}

std::optional<std::string> ConsoleDesktop::askText(std::string_view prompt, std::string_view title,
                                                   std::string_view /*defaultText*/) {
    decline(title, std::string(prompt) + " (cannot be asked without a display)");
    return std::nullopt;
}

std::string ConsoleDesktop::askFile(const FileDialogRequest& request) {
    decline("Brasquelin", request.title + " (no file can be chosen without a display)");
    return {};
}

void ConsoleDesktop::openLink(std::string_view target) {
    decline("Brasquelin", std::string(target) + " (cannot be opened without a display)");
}

void ConsoleDesktop::showWindow(ProgramWindow window, bool /*modal*/) {
    decline("Brasquelin", "The window " + std::string(nameOf(window)) + " needs a display.");
}

ValueAnswer ConsoleDesktop::askValue(const ValueQuestion& question) {
    askText(question.prompt, "Brasquelin", question.defaultText);
    return {};
}

void ConsoleDesktop::showPrompt(std::shared_ptr<PromptForm> /*form*/, bool /*modal*/) {
    decline("Brasquelin", "A prompt needs a display.");
}

}  // namespace brasquelin
