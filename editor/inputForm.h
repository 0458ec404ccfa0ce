// The window that asks for one text and offers the known references in a menu.
#pragma once

#include "platform/desktop.h"
#include "platform/wx/programDialog.h"

class wxButton;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

namespace brasquelin {

class InputForm : public ProgramDialog {
  public:
    /// OK and Stop write to `answer`, which must live as long; whatever else closes the window leaves it.
    InputForm(ValueQuestion question, ValueAnswer& answer);

  private:
    wxSizer* makeHead();
    wxStaticText* makeAbout();
    wxSizer* makeButtons();
    void endWith(ValueAnswer answer);
    void offerReferences();
    void insert(const wxString& reference);

    ValueQuestion question_;
    ValueAnswer& answer_;
    wxTextCtrl* valueBox_ = nullptr;
    wxButton* Command3_ = nullptr;
};

}  // namespace brasquelin
