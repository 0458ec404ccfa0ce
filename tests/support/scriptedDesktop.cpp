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

std::optional<std::string> ScriptedDesktop::askText(std::string_view question, std::string_view title,
                                                    std::string_view defaultText) {
    questions.push_back(titled(title, question) + " [" + std::string(defaultText) + "]");
    if (texts.empty()) return std::nullopt;
    return takeFirst(texts);
}

std::string ScriptedDesktop::askFile(const FileDialogRequest& request) {
    dialogs.push_back(request);
    return files.empty() ? std::string() : takeFirst(files);
}

void ScriptedDesktop::showWindow(ProgramWindow window, bool modal) {
    windowCalls.push_back("show " + std::string(nameOf(window)) + (modal ? " modal" : ""));
    if (!modal) visible_.insert(window);
    if (modal && onWindow) onWindow(window);
}

void ScriptedDesktop::unloadWindow(ProgramWindow window) {
    if (visible_.erase(window) > 0) windowCalls.push_back("unload " + std::string(nameOf(window)));
}

ValueAnswer ScriptedDesktop::askValue(const ValueQuestion& question) {
    valueQuestions.push_back(question);
    if (values.empty()) return {stopsChains ? ValueEnd::stopped : ValueEnd::cancelled};
    return {ValueEnd::given, takeFirst(values)};
}

void ScriptedDesktop::showPrompt(std::shared_ptr<PromptForm> form, bool modal) {
    windowCalls.push_back("show " + std::string(form->windowName()) + (modal ? " modal" : ""));
    prompt = std::move(form);
}

void ScriptedDesktop::runBehindWaitWindow(std::function<void()> run) {
    windowCalls.emplace_back("wait");
    waiting_ = true;
    run();
    waiting_ = false;
}

void ScriptedDesktop::showListProgress(std::shared_ptr<ListProgress> shown) {
    progress = std::move(shown);
    windowCalls.emplace_back("show progress");
    waiting_ = true;
}

void ScriptedDesktop::closeWaitWindow() {
    if (waiting_) windowCalls.emplace_back("close wait");
    waiting_ = false;
    progress.reset();
}

void ScriptedDesktop::showRunning(const std::string& what, std::function<void()> /*cancel*/) {
    running.push_back(what);
}

void ScriptedDesktop::processPendingEvents() {
    if (onEvents) onEvents();
}

void ScriptedDesktop::presentMessage(std::string_view text, std::string_view title, Icon /*icon*/) {
    messages.push_back(titled(title, text));
}

}  // namespace brasquelin
