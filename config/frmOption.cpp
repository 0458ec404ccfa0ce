#include "config/frmOption.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "platform/wx/oneLine.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

wxButton* makeButton(wxWindow* parent, const char* caption, const char* name, long style = 0) {
    return new wxButton(parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, style, wxDefaultValidator, name);
}

}  // namespace

FrmOption::FrmOption() : ProgramDialog("frmOption", "Options") {
    auto* grid = new wxFlexGridSizer(3, wxSize(FromDIP(8), FromDIP(6)));
    grid->AddGrowableCol(1);
    addPathRow(*grid, OptionsModel::library, "Library path :", "Text1", "Command1");
    addPathRow(*grid, OptionsModel::profile, "Profile path :", "Text2", "Command2");
    addPathRow(*grid, OptionsModel::plugin, "Plugin path :", "Text3", "Command3");
    addPathRow(*grid, OptionsModel::basicFunction, "BasicFunction path :", "Text4", "Command4");

    auto* variables = makeVariables();
    auto* cancel =
        new wxButton(this, wxID_CANCEL, "Cancel", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, "cmdCancel");
    cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { closeWindow(); });
    auto* saving = makeButton(this, "Save setting", "Command6");
    saving->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { save(); });
    saving->SetDefault();

    auto* note =
        new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_MIDDLE, "savingNote");
    note->SetLabelText(toWxLines(OptionsModel::savingNote()));
    note->SetToolTip(note->GetLabelText());
    auto* closing = new wxBoxSizer(wxHORIZONTAL);
    closing->Add(note, wxSizerFlags(1).CenterVertical().Border(wxRIGHT));
    closing->Add(cancel, wxSizerFlags().Border(wxRIGHT));
    closing->Add(saving);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(grid, wxSizerFlags().Expand().DoubleBorder(wxALL));
    all->Add(variables, wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT));
    all->Add(closing, wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(all);
    fit(FromDIP(wxSize(620, 460)));
    showVariables(wxNOT_FOUND);
}

void FrmOption::addPathRow(wxFlexGridSizer& grid, OptionsModel::Field field, const char* label, const char* boxName,
                           const char* buttonName) {
    auto* caption = new wxStaticText(this, wxID_ANY, label);
    auto* box = new wxTextCtrl(this, wxID_ANY, toWx(model_.path(field)), wxDefaultPosition, wxDefaultSize, 0,
                               wxDefaultValidator, boxName);
    auto* button = makeButton(this, "...", buttonName, wxBU_EXACTFIT);
    button->SetToolTip(field == OptionsModel::basicFunction ? "Choose a file" : "Choose a directory");
    box->Bind(wxEVT_TEXT, [this, field, box](wxCommandEvent&) { model_.setPath(field, fromWx(box->GetValue())); });
    keepOnOneLine(*box);
    button->Bind(wxEVT_BUTTON, [this, field, box](wxCommandEvent&) {
        model_.browse(field);
        box->ChangeValue(toWx(model_.path(field)));
    });
    grid.Add(caption, wxSizerFlags().CenterVertical());
    grid.Add(box, wxSizerFlags(1).Expand().CenterVertical());
    grid.Add(button, wxSizerFlags().CenterVertical());
}

wxSizer* FrmOption::makeVariables() {
    auto* caption = new wxStaticText(this, wxID_ANY, "BasicVariants");
    List1_ = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(300, 140)), 0, nullptr,
                           wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, "List1");
    auto* adding = makeButton(this, "Add", "Command5");
    Command7_ = makeButton(this, "Delete", "Command7");
    Command8_ = makeButton(this, "Modify", "Command8");
    adding->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { add(); });
    Command7_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { remove(); });
    Command8_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { modify(); });
    List1_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { enableButtons(); });
    List1_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { modify(); });
    List1_->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_DELETE || event.GetKeyCode() == WXK_NUMPAD_DELETE) return remove();
        event.Skip();
    });
    auto* buttons = new wxBoxSizer(wxVERTICAL);
    for (auto* button : {adding, Command7_, Command8_}) buttons->Add(button, wxSizerFlags().Expand().Border(wxBOTTOM));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(List1_, wxSizerFlags(1).Expand().Border(wxRIGHT));
    row->Add(buttons);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(caption, wxSizerFlags().Border(wxBOTTOM));
    column->Add(row, wxSizerFlags(1).Expand());
    return column;
}

std::optional<std::size_t> FrmOption::selected() const {
    const int selection = List1_->GetSelection();
    if (selection == wxNOT_FOUND) return std::nullopt;
    return static_cast<std::size_t>(selection);
}

void FrmOption::showVariables(int selection) {
    wxArrayString entries;
    for (const auto& variable : model_.variables()) entries.push_back(toWx(variable));
    List1_->Set(entries);
    List1_->SetSelection(std::min(selection, static_cast<int>(entries.size()) - 1));
    enableButtons();
}

void FrmOption::enableButtons() {
    Command7_->Enable(selected().has_value());
    Command8_->Enable(selected().has_value());
}

void FrmOption::add() {
    if (model_.addVariable()) showVariables(static_cast<int>(model_.variables().size()) - 1);
}

void FrmOption::remove() {
    const int selection = List1_->GetSelection();
    model_.removeVariable(selected());
    showVariables(selection);
}

void FrmOption::modify() {
    const int selection = List1_->GetSelection();
    model_.modifyVariable(selected());
    showVariables(selection);
}

void FrmOption::save() {
    model_.save();
    closeWindow();
}

}  // namespace brasquelin
