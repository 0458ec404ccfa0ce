#include "check/dryRun.h"

#include <algorithm>

#include "check/references.h"
#include "engine/runProfile.h"
#include "vars/promptForm.h"

namespace brasquelin {

DryRun::DryRun(bool withPlugins, TakeMessage takeMessage)
    : withPlugins_(withPlugins), lookingOn_(*this), desktopBefore_(desktop()), takeMessage_(std::move(takeMessage)) {
    setDesktop(*this);
    setJobSink([this](std::string_view line) { take(std::string(line)); });
}

DryRun::~DryRun() {
    setDesktop(desktopBefore_);
}

void DryRun::beginFile() {
    asked_ = skippedProgram_ = false;
}

void DryRun::take(std::string line) {
    const auto left = skippedProgram_ ? leftReferences(line) : std::vector<Reference>();
    for (const auto& reference : left) left_.emplace(reference.name);
    lines_.push_back({std::move(line), !left.empty()});
}

void DryRun::tellLeft() {
    std::string names;
    for (const auto& name : left_) names += (names.empty() ? "$" : ", $") + name + "$";
    if (!names.empty()) tell("left as they are, for a plugin may know them (--with-plugins): " + names);
}

bool DryRun::mayRunProgram(std::string_view path) {
    if (withPlugins_) return true;
    skippedProgram_ = true;
    if (skipped_.emplace(path).second) tell("'" + std::string(path) + "' was not run.");
    return false;
}

bool DryRun::isUnknown(std::string_view number, const SourceLine& place) {
    if (!skippedProgram_ || leftReferences(number).empty()) return false;
    const std::string loop = "'" + place.path + "' line " + std::to_string(place.line);
    if (unknownLoops_.insert(loop).second) {
        tell(loop + ": only a plugin knows '" + std::string(number) + "'; the loop is gone through once.");
    }
    return true;
}

void DryRun::tellAsked(std::string_view about) {
    const std::string text = std::string(about.substr(0, about.find('\r'))) + " would have to be asked for.";
    tell(text);
    noteFailure(text);
    asked_ = true;
}

void DryRun::showPrompt(std::shared_ptr<PromptForm> form, bool /*modal*/) {
    const bool someOnly =
        std::any_of(form->rows.begin(), form->rows.end(), [](const PromptRow& row) { return row.askUser; });
    for (const auto& row : form->rows) {
        if (row.askUser || !someOnly) tellAsked(form->about(row));
    }
    if (form->rows.empty()) tellAsked("The confirmation of '" + form->path + "'");
}

std::optional<std::string> DryRun::askText(std::string_view prompt, std::string_view /*title*/,
                                           std::string_view defaultText) {
    constexpr std::string_view gap = "\r\n\r\n";  // between the row's label and what it is about
    tellAsked(prompt.substr(prompt.find(gap) + gap.size()));
    return std::string(defaultText);
}

std::string DryRun::askFile(const FileDialogRequest& request) {
    tellAsked(request.note);
    return {};
}

void DryRun::showRunning(const std::string& what, std::function<void()> cancel) {
    desktopBefore_.showRunning(what, std::move(cancel));
}

void DryRun::presentMessage(std::string_view text, std::string_view title, Icon /*icon*/) {
    takeMessage_(title, text);
}

}  // namespace brasquelin
