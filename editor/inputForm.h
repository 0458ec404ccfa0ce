// The window that asks for one text and offers the known references in a menu.
#pragma once

#include <optional>
#include <string>

#include "platform/desktop.h"
#include "platform/wx/programDialog.h"

class wxButton;
class wxTextCtrl;

namespace brasquelin {

class InputForm : public ProgramDialog {
  public:
    /// OK writes the text to `answer`, which must live as long; whatever else closes the window leaves it.
    InputForm(ValueQuestion question, std::optional<std::string>& answer);

  private:
    void confirm();
    void offerReferences();
    void insert(const wxString& reference);

    ValueQuestion question_;
    std::optional<std::string>& answer_;
    wxTextCtrl* valueBox_ = nullptr;
    wxButton* Command3_ = nullptr;
};

}  // namespace brasquelin
