#include "editor/frmAddCommand.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include "platform/wx/dropDown.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FrmAddCommand::FrmAddCommand() : ProgramDialog("frmAddCommand", "Add Command To Project") {
    auto* cancel =
        new wxButton(this, wxID_CANCEL, "Cancel", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, "cmdCancel");
    cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { closeWindow(); });
    Command1_ = new wxButton(this, wxID_ANY, "Configure this function and add it to project", wxDefaultPosition,
                             wxDefaultSize, 0, wxDefaultValidator, "Command1");
    Command1_->SetDefault();
    Command1_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { configure(); });
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(cancel, wxSizerFlags().Border(wxRIGHT));
    buttons->Add(Command1_);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(makeNames(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    all->Add(makeReferences(), wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT));
    all->Add(buttons, wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(all);
    fit(FromDIP(wxSize(480, 380)));
    Combo1_->SetFocus();
}

wxSizer* FrmAddCommand::makeNames() {
    wxArrayString names;
    for (const auto& entry : model_.entries()) names.push_back(toWx(entry.name));
    Combo1_ = new DropDown(this, names, "Combo1");
    if (!names.empty()) Combo1_->SetSelection(0);
    Command1_->Enable(!names.empty());
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(new wxStaticText(this, wxID_ANY, "Function names :"), wxSizerFlags().Border(wxBOTTOM));
    column->Add(Combo1_, wxSizerFlags().Expand());
    return column;
}

wxSizer* FrmAddCommand::makeReferences() {
    auto* box = new wxStaticBoxSizer(wxVERTICAL, this, "Variants available");
    wxArrayString references;
    for (const auto& reference : model_.references()) references.push_back(toWx(reference));
    auto* List2 = new wxListBox(box->GetStaticBox(), wxID_ANY, wxDefaultPosition, FromDIP(wxSize(240, 160)), references,
                                wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, "List2");
    List2->SetToolTip("Dbl click to set in clipboard");
    List2->Bind(wxEVT_LISTBOX_DCLICK, [this, List2](wxCommandEvent&) {
        if (List2->GetSelection() >= 0) model_.copyReference(static_cast<std::size_t>(List2->GetSelection()));
    });
    box->Add(List2, wxSizerFlags(1).Expand().Border(wxALL));
    return box;
}

void FrmAddCommand::configure() {
    const int chosen = Combo1_->GetSelection();
    if (chosen < 0) return;
    model_.configure(static_cast<std::size_t>(chosen));
    closeWindow();
}

}  // namespace brasquelin
