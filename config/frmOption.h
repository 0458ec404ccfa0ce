// The options window: the four directories and the global variables.
#pragma once

#include "config/optionsModel.h"
#include "platform/wx/programDialog.h"

class wxFlexGridSizer;
class wxListBox;
class wxSizer;
class wxTextCtrl;

namespace brasquelin {

class FrmOption : public ProgramDialog {
  public:
    FrmOption();

  private:
    void addPathRow(wxFlexGridSizer& grid, OptionsModel::Field field, const char* label, const char* boxName,
                    const char* buttonName);
    wxSizer* makePaths();
    wxSizer* makeVariables();
    wxSizer* makeEnd();
    void showVariables(int selection);
    void add();
    void remove();
    void modify();
    void save();
    void enableButtons();

    OptionsModel model_;
    wxListBox* List1_ = nullptr;
    wxButton* Command7_ = nullptr;
    wxButton* Command8_ = nullptr;
};

}  // namespace brasquelin
