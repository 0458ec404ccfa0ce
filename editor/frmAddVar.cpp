#include "editor/frmAddVar.h"

#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/listBox.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/wxText.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

enum ChoiceItem { editItem = wxID_HIGHEST + 1, removeItem, upItem, downItem };

constexpr const char* choiceHint = "A double click or F2 edits an entry, Del removes it, Ctrl+Up and Ctrl+Down move it";

}  // namespace

FrmAddVar::FrmAddVar() : ProgramDialog("frmAddVar", "Add var to project") {
    if (model_.edits()) SetTitle("Edit var of project");
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
    showState();
    auto* name = dynamic_cast<wxTextCtrl*>(FindWindow("Text1"));
    name->SetFocus();
    name->SelectAll();
}

wxStaticBoxSizer* FrmAddVar::frame(const char* caption) {
    return new wxStaticBoxSizer(wxVERTICAL, this, caption);
}

wxSizer* FrmAddVar::makeText(const char* caption, const char* name, std::string& field) {
    auto* box = frame(caption);
    auto* text = makeTextBox(box->GetStaticBox(), name, field, [this, &field](std::string typed) {
        field = std::move(typed);
        showState();
    });
    box->Add(text, wxSizerFlags().Expand().Border(wxALL));
    return box;
}

void FrmAddVar::showState() {
    if (!note_) return;  // not all is there yet
    note_->SetLabelText(toWx(shownLine(model_.note())));
    Combo1_->SetStringSelection(toWx(model_.fields.type));
    FindWindow("Combo2")->Enable(model_.usesList());
    FindWindow("Combo4")->Enable(model_.usesComb());
    FindWindow("Text2")->Enable(model_.usesFilter());
}

wxSizer* FrmAddVar::makeType() {
    auto* box = frame("Type");
    auto* parent = box->GetStaticBox();
    Combo1_ = new DropDown(parent, variableTypes(), "Combo1");
    Combo1_->SetStringSelection(toWx(model_.fields.type));
    Combo1_->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) {
        model_.fields.type = fromWx(Combo1_->GetValue());
        showState();
    });
    box->Add(Combo1_, wxSizerFlags().Expand().Border(wxALL));
    const auto growing = wxSizerFlags(1).Expand().Border(wxALL);
    box->Add(makeChoices(parent, {"List :", "Combo2", "Command1", &model_.fields.listChoices,
                                  &AddVariable::askListChoice, &AddVariable::editListChoice}),
             growing);
    box->Add(makeChoices(parent, {"Comb :", "Combo4", "Command2", &model_.fields.combEntries,
                                  &AddVariable::askCombEntry, &AddVariable::editCombEntry}),
             growing);
    auto* Text2 = makeTextBox(parent, "Text2", model_.fields.filter,
                              [this](std::string text) { model_.fields.filter = std::move(text); });
    auto* filter = new wxBoxSizer(wxHORIZONTAL);
    filter->Add(new wxStaticText(parent, wxID_ANY, "Path filter :"), wxSizerFlags().CenterVertical().Border(wxRIGHT));
    filter->Add(Text2, wxSizerFlags(1).CenterVertical());
    box->Add(filter, wxSizerFlags().Expand().Border(wxALL));
    return box;
}

wxSizer* FrmAddVar::makeChoices(wxWindow* parent, const Choices& choices) {
    auto* list = makeListBox(parent, choices.list, wxSize(200, 60), *choices.entries);
    bindChoices(*list, choices);
    auto* button = makeButton(parent, "Add ...", choices.button, [this, list, choices] {
        (model_.*choices.ask)();
        showEntries(*list, *choices.entries, static_cast<int>(choices.entries->size()) - 1);
        showState();
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

void FrmAddVar::bindChoices(wxListBox& list, const Choices& choices) {
    list.SetToolTip(choiceHint);
    list.Bind(wxEVT_LISTBOX_DCLICK, [this, &list, choices](wxCommandEvent&) { editChoice(list, choices); });
    list.Bind(wxEVT_KEY_DOWN, [this, &list, choices](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        const bool moves = event.ControlDown() || event.AltDown();
        if (key == WXK_F2) return editChoice(list, choices);
        if (key == WXK_DELETE || key == WXK_NUMPAD_DELETE) return removeChoice(list, choices);
        if (moves && (key == WXK_UP || key == WXK_DOWN)) return moveChoice(list, choices, key == WXK_UP ? -1 : 1);
        event.Skip();
    });
    list.Bind(wxEVT_CONTEXT_MENU,
              [this, &list, choices](wxContextMenuEvent& event) { showChoiceMenu(list, choices, event); });
}

void FrmAddVar::showChoiceMenu(wxListBox& list, const Choices& choices, wxContextMenuEvent& event) {
    const wxPoint place =
        event.GetPosition() == wxDefaultPosition ? wxPoint() : list.ScreenToClient(event.GetPosition());
    const int pointed = list.HitTest(place);
    if (pointed != wxNOT_FOUND) list.SetSelection(pointed);
    const int selected = list.GetSelection();
    wxMenu menu;
    menu.Append(editItem, "&Edit\tF2")->Enable(selected >= 0);
    menu.Append(removeItem, "&Remove\tDel")->Enable(selected >= 0);
    menu.AppendSeparator();
    menu.Append(upItem, "Move &up\tCtrl+Up")->Enable(selected > 0);
    menu.Append(downItem, "Move &down\tCtrl+Down")
        ->Enable(selected >= 0 && selected + 1 < static_cast<int>(list.GetCount()));
    menu.Bind(wxEVT_MENU, [&](wxCommandEvent& chosen) {
        if (chosen.GetId() == editItem) return editChoice(list, choices);
        if (chosen.GetId() == removeItem) return removeChoice(list, choices);
        moveChoice(list, choices, chosen.GetId() == upItem ? -1 : 1);
    });
    popUpMenu(list, menu, place);
}

void FrmAddVar::editChoice(wxListBox& list, const Choices& choices) {
    const auto selected = selectedEntry(list);
    if (!selected) return;
    (model_.*choices.edit)(*selected);
    showEntries(list, *choices.entries, static_cast<int>(*selected));
}

void FrmAddVar::moveChoice(wxListBox& list, const Choices& choices, int by) {
    const int from = list.GetSelection();
    const int to = from + by;
    if (from < 0 || to < 0 || to >= static_cast<int>(choices.entries->size())) return;
    std::swap(choices.entries->at(static_cast<std::size_t>(from)), choices.entries->at(static_cast<std::size_t>(to)));
    showEntries(list, *choices.entries, to);
}

void FrmAddVar::removeChoice(wxListBox& list, const Choices& choices) {
    const auto selected = selectedEntry(list);
    if (!selected) return;
    choices.entries->erase(choices.entries->begin() + static_cast<std::ptrdiff_t>(*selected));
    showEntries(list, *choices.entries, static_cast<int>(*selected));
    showState();
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
    auto* Command3 = makeButton(this, model_.edits() ? "OK" : "Add Var", "Command3", [this] {
        model_.add();
        closeWindow();
    });
    note_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                             wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "note");
    note_->SetMinSize(wxSize(0, -1));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(note_, wxSizerFlags(1).CenterVertical().DoubleBorder(wxRIGHT));
    row->Add(makeButtonRow(Command4, Command3));
    return row;
}

}  // namespace brasquelin
