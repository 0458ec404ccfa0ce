// Appends a call to the profile.
#pragma once

#include "editor/addCommand.h"
#include "platform/wx/programDialog.h"

class wxSizer;

namespace brasquelin {

class DropDown;

class FrmAddCommand : public ProgramDialog {
  public:
    FrmAddCommand();

  private:
    wxSizer* makeNames();
    wxSizer* makeReferences();
    wxSizer* makeButtons();
    void configure();

    AddCommand model_;
    DropDown* Combo1_ = nullptr;
};

}  // namespace brasquelin
