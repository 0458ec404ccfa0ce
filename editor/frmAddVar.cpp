#include "editor/frmAddVar.h"

#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/listBox.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

wxTextCtrl* makeBox(wxWindow* parent, const char* name, std::string& field) {
    return makeTextBox(parent, name, field, [&field](std::string text) { field = std::move(text); });
}

void removeSelected(wxListBox& list, Entries& entries) {
    const int selected = list.GetSelection();
    if (selected < 0) return;
    entries.erase(entries.begin() + selected);
    showEntries(list, entries, selected);
}

}  // namespace

FrmAddVar::FrmAddVar() : ProgramDialog("frmAddVar", "Add var to project") {
    const auto below = wxSizerFlags().Expand().Border(wxBOTTOM);
    auto* left = new wxBoxSizer(wxVERTICAL);
    left->Add(makeText("Name", "Text1", model_.fields.name), below);
    left->Add(makeType(), wxSizerFlags(1).Expand().Border(wxBOTTOM));
    left->Add(makeText("Info", "Text3", model_.fields.info), below);
    left->Add(makeText("Default (Item number for list or comb , ex : 1)", "Text4", model_.fields.defaultValue), below);
    auto* fields = new wxBoxSizer(wxHORIZONTAL);
    fields->Add(left, wxSizerFlags(3).Expand().DoubleBorder(wxRIGHT));
    fields->Add(makeReferences(), wxSizerFlags(2).Expand().Border(wxBOTTOM));
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(fields, wxSizerFlags(1).Expand().DoubleBorder(wxALL));
    all->Add(makeButtons(), wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    SetSizer(all);
    fit(FromDIP(wxSize(680, 560)));
    auto* name = dynamic_cast<wxTextCtrl*>(FindWindow("Text1"));
    name->SetFocus();
    name->SelectAll();
}

wxStaticBoxSizer* FrmAddVar::frame(const char* caption) {
    return new wxStaticBoxSizer(wxVERTICAL, this, caption);
}

wxSizer* FrmAddVar::makeText(const char* caption, const char* name, std::string& field) {
    auto* box = frame(caption);
    box->Add(makeBox(box->GetStaticBox(), name, field), wxSizerFlags().Expand().Border(wxALL));
    return box;
}

wxSizer* FrmAddVar::makeType() {
    auto* box = frame("Type");
    auto* parent = box->GetStaticBox();
    auto* Combo1 = new DropDown(parent, variableTypes(), "Combo1");
    Combo1->SetStringSelection(toWx(model_.fields.type));
    Combo1->Bind(wxEVT_COMBOBOX, [this, Combo1](wxCommandEvent&) { model_.fields.type = fromWx(Combo1->GetValue()); });
    box->Add(Combo1, wxSizerFlags().Expand().Border(wxALL));
    const auto growing = wxSizerFlags(1).Expand().Border(wxALL);
    box->Add(
        makeChoices(parent, {"List :", "Combo2", "Command1", &model_.fields.listChoices, &AddVariable::askListChoice}),
        growing);
    box->Add(
        makeChoices(parent, {"Comb :", "Combo4", "Command2", &model_.fields.combEntries, &AddVariable::askCombEntry}),
        growing);
    auto* Text2 = makeBox(parent, "Text2", model_.fields.filter);
    auto* filter = new wxBoxSizer(wxHORIZONTAL);
    filter->Add(new wxStaticText(parent, wxID_ANY, "Path filter :"), wxSizerFlags().CenterVertical().Border(wxRIGHT));
    filter->Add(Text2, wxSizerFlags(1).CenterVertical());
    box->Add(filter, wxSizerFlags().Expand().Border(wxALL));
    return box;
}

wxSizer* FrmAddVar::makeChoices(wxWindow* parent, const Choices& choices) {
    auto* list = makeListBox(parent, choices.list, wxSize(200, 60));
    list->SetToolTip("Del removes an entry");
    bindDelete(*list, [list, choices] { removeSelected(*list, *choices.entries); });
    auto* button = makeButton(parent, "Add ...", choices.button, [this, list, choices] {
        (model_.*choices.ask)();
        showEntries(*list, *choices.entries, static_cast<int>(choices.entries->size()) - 1);
    });
    button->MoveBeforeInTabOrder(list);
    auto* captions = new wxBoxSizer(wxHORIZONTAL);
    captions->Add(new wxStaticText(parent, wxID_ANY, choices.caption), wxSizerFlags(1).CenterVertical());
    captions->Add(button);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(captions, wxSizerFlags().Expand().Border(wxBOTTOM));
    column->Add(list, wxSizerFlags(1).Expand());
    return column;
}

wxSizer* FrmAddVar::makeReferences() {
    auto* box = frame("Plugin variables");
    auto* parent = box->GetStaticBox();
    auto* List1 = makeReferenceList(parent, "List1", wxSize(180, 200), model_.references());
    box->Add(List1, wxSizerFlags(1).Expand().Border(wxALL));
    box->Add(new wxStaticText(parent, wxID_ANY, referenceHint), wxSizerFlags().Border(wxALL));
    return box;
}

wxSizer* FrmAddVar::makeButtons() {
    auto* Command4 = makeCancelButton(this, "Cancel", "Command4");
    auto* Command3 = makeButton(this, "Add Var", "Command3", [this] {
        model_.add();
        closeWindow();
    });
    return makeButtonRow(Command4, Command3);
}

}  // namespace brasquelin
