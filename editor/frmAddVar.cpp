#include "editor/frmAddVar.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>

#include "platform/wx/dropDown.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

wxArrayString toItems(const std::vector<std::string>& texts) {
    wxArrayString items;
    for (const auto& text : texts) items.push_back(toWx(text));
    return items;
}

wxTextCtrl* makeBox(wxWindow* parent, const char* name, std::string& field) {
    auto* box =
        new wxTextCtrl(parent, wxID_ANY, toWx(field), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    box->Bind(wxEVT_TEXT, [box, &field](wxCommandEvent&) { field = fromWx(box->GetValue()); });
    keepOnOneLine(*box);
    return box;
}

void removeSelected(wxListBox& list, std::vector<std::string>& entries) {
    const int selected = list.GetSelection();
    if (selected < 0) return;
    entries.erase(entries.begin() + selected);
    list.Delete(static_cast<unsigned>(selected));
    list.SetSelection(std::min(selected, static_cast<int>(entries.size()) - 1));
}

wxButton* makeButton(wxWindow* parent, const char* caption, const char* name, int id = wxID_ANY) {
    return new wxButton(parent, id, caption, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
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
    auto* Combo1 = new DropDown(parent, toItems(variableTypes()), "Combo1");
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
    auto* button = makeButton(parent, "Add ...", choices.button);
    auto* list = new wxListBox(parent, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(200, 60)), 0, nullptr,
                               wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, choices.list);
    list->SetToolTip("Del removes an entry");
    list->Bind(wxEVT_KEY_DOWN, [list, choices](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (key != WXK_DELETE && key != WXK_NUMPAD_DELETE) return event.Skip();
        removeSelected(*list, *choices.entries);
    });
    button->Bind(wxEVT_BUTTON, [this, list, choices](wxCommandEvent&) {
        (model_.*choices.ask)();
        list->Set(toItems(*choices.entries));
        list->SetSelection(static_cast<int>(choices.entries->size()) - 1);
    });
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
    auto* List1 = new wxListBox(parent, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(180, 200)),
                                toItems(model_.references()), wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, "List1");
    List1->Bind(wxEVT_LISTBOX_DCLICK, [this, List1](wxCommandEvent&) {
        if (List1->GetSelection() >= 0) model_.copyReference(static_cast<std::size_t>(List1->GetSelection()));
    });
    box->Add(List1, wxSizerFlags(1).Expand().Border(wxALL));
    box->Add(new wxStaticText(parent, wxID_ANY, "Dbl click to set in clipboard"), wxSizerFlags().Border(wxALL));
    return box;
}

wxSizer* FrmAddVar::makeButtons() {
    auto* Command4 = makeButton(this, "Cancel", "Command4", wxID_CANCEL);
    Command4->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { closeWindow(); });
    auto* Command3 = makeButton(this, "Add Var", "Command3");
    Command3->SetDefault();
    Command3->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        model_.add();
        closeWindow();
    });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->AddStretchSpacer();
    row->Add(Command4, wxSizerFlags().Border(wxRIGHT));
    row->Add(Command3);
    return row;
}

}  // namespace brasquelin
