#include "config/frmOption.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/wx/buttons.h"
#include "platform/wx/listBox.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FrmOption::FrmOption() : ProgramDialog("frmOption", "Options") {
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(makePaths(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    all->Add(makeVariables(), wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT));
    all->Add(makeEnd(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(all);
    fit(FromDIP(wxSize(620, 460)));
    showVariables(wxNOT_FOUND);
}

wxSizer* FrmOption::makePaths() {
    auto* grid = new wxFlexGridSizer(3, wxSize(FromDIP(8), FromDIP(6)));
    grid->AddGrowableCol(1);
    addPathRow(*grid, OptionsModel::library, "Library path :", "Text1", "Command1");
    addPathRow(*grid, OptionsModel::profile, "Profile path :", "Text2", "Command2");
    addPathRow(*grid, OptionsModel::plugin, "Plugin path :", "Text3", "Command3");
    addPathRow(*grid, OptionsModel::basicFunction, "BasicFunction path :", "Text4", "Command4");
    return grid;
}

/// What saving does stands beside its button.
wxSizer* FrmOption::makeEnd() {
    auto* cancel = makeCancelButton(this);
    auto* saving = makeButton(this, "Save setting", "Command6", [this] { save(); });
    auto* note =
        new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_MIDDLE, "savingNote");
    note->SetLabelText(toWxLines(OptionsModel::savingNote()));
    note->SetToolTip(note->GetLabelText());
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(note, wxSizerFlags(1).CenterVertical().Border(wxRIGHT));
    row->Add(makeButtonRow(cancel, saving), wxSizerFlags().CenterVertical());
    return row;
}

void FrmOption::addPathRow(wxFlexGridSizer& grid, OptionsModel::Field field, const char* label, const char* boxName,
                           const char* buttonName) {
    auto* caption = new wxStaticText(this, wxID_ANY, label);
    auto* box = makeTextBox(this, boxName, model_.path(field),
                            [this, field](const std::string& path) { model_.setPath(field, path); });
    const char* tip = field == OptionsModel::basicFunction ? "Choose a file" : "Choose a directory";
    auto* button = makeBrowseButton(this, buttonName, tip, [this, field, box] {
        model_.browse(field);
        box->ChangeValue(toWx(model_.path(field)));
    });
    grid.Add(caption, wxSizerFlags().CenterVertical());
    grid.Add(box, wxSizerFlags(1).Expand().CenterVertical());
    grid.Add(button, wxSizerFlags().CenterVertical());
}

wxSizer* FrmOption::makeVariables() {
    auto* caption = new wxStaticText(this, wxID_ANY, "BasicVariants");
    List1_ = makeListBox(this, "List1", wxSize(300, 140));
    auto* adding = makeButton(this, "Add", "Command5", [this] { add(); });
    Command7_ = makeButton(this, "Delete", "Command7", [this] { remove(); });
    Command8_ = makeButton(this, "Modify", "Command8", [this] { modify(); });
    List1_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { enableButtons(); });
    List1_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { modify(); });
    bindDelete(*List1_, [this] { remove(); });
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

void FrmOption::showVariables(int selection) {
    showEntries(*List1_, model_.variables(), selection);
    enableButtons();
}

void FrmOption::enableButtons() {
    const bool selected = selectedEntry(*List1_).has_value();
    Command7_->Enable(selected);
    Command8_->Enable(selected);
}

void FrmOption::add() {
    if (model_.addVariable()) showVariables(static_cast<int>(model_.variables().size()) - 1);
}

void FrmOption::remove() {
    const int selection = List1_->GetSelection();
    model_.removeVariable(selectedEntry(*List1_));
    showVariables(selection);
}

void FrmOption::modify() {
    const int selection = List1_->GetSelection();
    model_.modifyVariable(selectedEntry(*List1_));
    showVariables(selection);
}

void FrmOption::save() {
    model_.save();
    closeWindow();
}

}  // namespace brasquelin
