// Declares a variable, or changes a declaration.
#pragma once

#include "editor/addVariable.h"
#include "platform/wx/programDialog.h"

class wxListBox;
class wxSizer;
class wxStaticBoxSizer;
class wxStaticText;

namespace brasquelin {

class DropDown;

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
        void (AddVariable::*edit)(std::size_t index);
    };

    wxStaticBoxSizer* frame(const char* caption);
    wxSizer* makeText(const char* caption, const char* name, std::string& field);
    wxSizer* makeType();
    wxSizer* makeChoices(wxWindow* parent, const Choices& choices);
    void bindChoices(wxListBox& list, const Choices& choices);
    void editChoice(wxListBox& list, const Choices& choices);
    void moveChoice(wxListBox& list, const Choices& choices, int by);
    void removeChoice(wxListBox& list, const Choices& choices);
    void showChoiceMenu(wxListBox& list, const Choices& choices, wxContextMenuEvent& event);
    /// What is odd about the fields, and which of them apply.
    void showState();
    wxSizer* makeReferences();
    wxSizer* makeButtons();

    AddVariable model_;
    DropDown* Combo1_ = nullptr;
    wxStaticText* note_ = nullptr;
};

}  // namespace brasquelin
