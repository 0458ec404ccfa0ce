// Appends a call to the profile, or changes one.
#pragma once

#include "editor/addCommand.h"
#include "platform/wx/programDialog.h"

class wxSizer;
class wxStaticText;

namespace brasquelin {

class DropDown;

class FrmAddCommand : public ProgramDialog {
  public:
    FrmAddCommand();

  private:
    wxSizer* makeNames();
    wxSizer* makeReferences();
    wxSizer* makeButtons();
    wxStaticText* makeNote();
    void configure();

    AddCommand model_;
    DropDown* Combo1_ = nullptr;
};

}  // namespace brasquelin
