#include "editor/frmAddCommand.h"

#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include "platform/wx/buttons.h"
#include "platform/wx/dropDown.h"
#include "platform/wx/listBox.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FrmAddCommand::FrmAddCommand() : ProgramDialog("frmAddCommand", "Add Command To Project") {
    if (model_.edits()) SetTitle("Edit Command Of Project");
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(makeNames(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    all->Add(makeReferences(), wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT));
    if (!model_.note().empty()) all->Add(makeNote(), wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxTOP | wxRIGHT));
    all->Add(makeButtons(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(all);
    fit(FromDIP(wxSize(480, 380)));
    Combo1_->SetFocus();
}

wxSizer* FrmAddCommand::makeNames() {
    Entries names;
    for (const auto& entry : model_.entries()) names.push_back(entry.name);
    Combo1_ = new DropDown(this, names, "Combo1");
    if (const auto first = model_.firstChoice()) Combo1_->SetSelection(static_cast<int>(*first));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(new wxStaticText(this, wxID_ANY, "Function names :"), wxSizerFlags().Border(wxBOTTOM));
    column->Add(Combo1_, wxSizerFlags().Expand());
    return column;
}

wxSizer* FrmAddCommand::makeReferences() {
    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, "Variants available");
    auto* List2 = makeReferenceList(box->GetStaticBox(), "List2", wxSize(240, 160), model_.references());
    box->Add(List2, wxSizerFlags(1).Expand().Border(wxALL));
    return box;
}

wxStaticText* FrmAddCommand::makeNote() {
    auto* note = new wxStaticText(this, wxID_ANY, toWx(model_.note()), wxDefaultPosition, wxDefaultSize, 0, "note");
    note->Wrap(FromDIP(450));
    return note;
}

wxSizer* FrmAddCommand::makeButtons() {
    const char* caption = model_.edits() ? "Configure this function" : "Configure this function and add it to project";
    auto* cancel = makeCancelButton(this);
    auto* Command1 = makeButton(this, caption, "Command1", [this] { configure(); });
    Command1->Enable(!model_.entries().empty());
    return makeButtonRow(cancel, Command1);
}

void FrmAddCommand::configure() {
    const auto chosen = selectedEntry(*Combo1_);
    if (!chosen) return;
    model_.configure(*chosen);
    closeWindow();
}

}  // namespace brasquelin
