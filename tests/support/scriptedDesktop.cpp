#include "support/scriptedDesktop.h"

namespace brasquelin {

namespace {

std::string takeFirst(std::deque<std::string>& answers) {
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
}

std::string titled(std::string_view title, std::string_view text) {
    return std::string(title) + ": " + std::string(text);
}

}  // namespace

bool ScriptedDesktop::askYesNo(std::string_view text, std::string_view title) {
    questions.push_back(titled(title, text));
    return yes;
}

std::optional<std::string> ScriptedDesktop::askText(std::string_view prompt, std::string_view title,
                                                    std::string_view defaultText) {
    questions.push_back(titled(title, prompt) + " [" + std::string(defaultText) + "]");
    if (texts.empty()) return std::nullopt;
    return takeFirst(texts);
}

std::string ScriptedDesktop::askFile(const FileDialogRequest& request) {
    dialogs.push_back(request);
    return files.empty() ? std::string() : takeFirst(files);
}

void ScriptedDesktop::showWindow(std::string_view name, bool modal) {
    windowCalls.push_back("show " + std::string(name) + (modal ? " modal" : ""));
    visible_[std::string(name)] = true;
    const auto action = onShow.find(std::string(name));
    if (action != onShow.end()) action->second();
    if (modal) visible_[std::string(name)] = false;
}

void ScriptedDesktop::unloadWindow(std::string_view name) {
    if (isVisible(name)) windowCalls.push_back("unload " + std::string(name));
    visible_[std::string(name)] = false;
}

bool ScriptedDesktop::isVisible(std::string_view name) const {
    const auto found = visible_.find(name);
    return found != visible_.end() && found->second;
}

void ScriptedDesktop::processPendingEvents() {
    if (onEvents) onEvents();
}

void ScriptedDesktop::presentMessage(std::string_view text, std::string_view title, Icon /*icon*/) {
    messages.push_back(titled(title, text));
}

}  // namespace brasquelin
