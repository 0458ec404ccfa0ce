// Declares a variable.
#pragma once

#include "editor/addVariable.h"
#include "platform/wx/programDialog.h"

class wxSizer;
class wxStaticBoxSizer;

namespace brasquelin {

class FrmAddVar : public ProgramDialog {
  public:
    FrmAddVar();

  private:
    /// A list of choices and the button that asks for one more.
    struct Choices {
        const char* caption;
        const char* list;
        const char* button;
        std::vector<std::string>* entries;
        void (AddVariable::*ask)();
    };

    wxStaticBoxSizer* frame(const char* caption);
    wxSizer* makeText(const char* caption, const char* name, std::string& field);
    wxSizer* makeType();
    wxSizer* makeChoices(wxWindow* parent, const Choices& choices);
    wxSizer* makeReferences();
    wxSizer* makeButtons();

    AddVariable model_;
};

}  // namespace brasquelin
