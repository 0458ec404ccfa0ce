#include "editor/preview.h"

#include <algorithm>
#include <utility>

#include "check/keptTables.h"
#include "engine/runProfile.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/text.h"
#include "vars/commandLine.h"
#include "vars/loadPrompt.h"

namespace brasquelin {

namespace {

/// A dry run that confirms its prompt with given values. Endless loops end.
class PreviewRun : public DryRun {
  public:
    PreviewRun(std::shared_ptr<PromptForm>& form, bool withPlugins, TakeMessage takeMessage)
        : DryRun(withPlugins, std::move(takeMessage)), form_(form) {}

    void showPrompt(std::shared_ptr<PromptForm> form, bool /*modal*/) override {
        if (form_ && form_->rows.size() == form->rows.size()) form->rows = form_->rows;
        form_ = std::make_shared<PromptForm>(*form);
        confirmPrompt(*form);
    }
    bool mayTurn() override { return mayRepeat(); }
    bool mayCall() override { return mayRepeat(); }

  private:
    bool mayRepeat() {
        constexpr int most = 20'000;
        if (++repeated_ == most) tell("The preview ends loops here: there are too many turns.");
        return repeated_ < most;
    }

    std::shared_ptr<PromptForm>& form_;
    int repeated_ = 0;
};

void runAsUser(const std::string& path) {
    PromptOptions options;
    options.runAtOnce = [&path] { runProfile(path, 1); };
    options.confirmed = [&path](const auto& /*values*/) { runProfile(path, 1); };
    enterDirectoryOf(path);
    loadProfile(path, std::move(options));
}

}  // namespace

DocumentPreview::DocumentPreview(const ProfileDocument& document) : document_(document) {
    run(false);
}

void DocumentPreview::run(bool withPlugins) {
    const std::string path = documentPath(document_);
    const KeptDirectory directory;
    const UnsavedText text(path, documentLines(document_));
    notes_.clear();
    const auto note = [this](std::string_view /*title*/, std::string_view message) {
        notes_.push_back(replaceAll(message, "\r\n", " "));
    };
    PreviewRun dryRun(form_, withPlugins, note);
    try {
        reporting(path, [&] { runAsUser(path); });
    } catch (const EndProgram&) {
        notes_.emplace_back("The program ends here, and nothing is executed.");
    }
    lines_ = dryRun.lines();
    leftPrograms_ = dryRun.skippedProgram();
}

std::string DocumentPreview::summary() const {
    const auto changed = std::count_if(lines_.begin(), lines_.end(), [](const auto& line) { return line.needsPlugin; });
    std::string text = std::to_string(lines_.size()) + (lines_.size() == 1 ? " line" : " lines");
    if (changed > 0) text += "; a plugin would change " + std::to_string(changed) + " of them (marked)";
    return text;
}

void DocumentPreview::askValues() {
    const KeptTables tables;
    auto asked = std::make_shared<PromptForm>(*form_);
    bool confirmed = false;
    asked->confirmed = [&confirmed](const auto& /*values*/) { confirmed = true; };
    desktop().showPrompt(asked, true);
    if (!confirmed) return;
    form_->rows = asked->rows;
    run(false);
}

void DocumentPreview::runWithPlugins() {
    run(true);
}

}  // namespace brasquelin
