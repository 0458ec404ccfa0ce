// The window that asks for one text and offers the known references in a menu.
#pragma once

#include "platform/wx/programDialog.h"

class wxButton;
class wxTextCtrl;

namespace brasquelin {

class InputForm : public ProgramDialog {
  public:
    InputForm();

  private:
    void confirm();
    void offerReferences();
    void insert(const wxString& reference);

    wxTextCtrl* valueBox_ = nullptr;
    wxButton* Command3_ = nullptr;
};

}  // namespace brasquelin
