// What the document would put into the batch file.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "check/dryRun.h"
#include "editor/profileDocument.h"
#include "vars/promptForm.h"

namespace brasquelin {

class DocumentPreview {
  public:
    /// Runs the document for the default values of its variables, without plugins.
    explicit DocumentPreview(const ProfileDocument& document);

    const std::vector<DryRunLine>& lines() const { return lines_; }
    /// What was told meanwhile, each on one line.
    const std::vector<std::string>& notes() const { return notes_; }
    /// How many lines there are, and how many of them a plugin would change.
    std::string summary() const;

    bool hasVariables() const { return form_ && !form_->rows.empty(); }
    /// True when plugins or checks were left out.
    bool leftPrograms() const { return leftPrograms_; }

    /// Opens a prompt with the values in use; OK runs the document for the values in it.
    void askValues();
    /// Runs the document once more, with its plugins and checks.
    void runWithPlugins();

  private:
    void run(bool withPlugins);

    const ProfileDocument& document_;
    std::shared_ptr<PromptForm> form_;
    std::vector<DryRunLine> lines_;
    std::vector<std::string> notes_;
    bool leftPrograms_ = false;
};

}  // namespace brasquelin
