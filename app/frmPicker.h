// What the two pickers share: a list of titles and a button that opens the selected file.
#pragma once

#include "app/pickers.h"
#include "platform/wx/programDialog.h"

class wxListBox;

namespace brasquelin {

struct PickerTexts {
    const char* window;
    const char* caption;
    const char* list;
    const char* listName;  // for assistive tools
    const char* button;
    const char* whenEmpty;
};

class FrmPicker : public ProgramDialog {
  public:
    FrmPicker(const PickerTexts& texts, PickerList files);

  private:
    void load();

    PickerList files_;
    wxListBox* titles_ = nullptr;
};

}  // namespace brasquelin
