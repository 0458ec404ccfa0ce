#include "app/frmPicker.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "app/openFile.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FrmPicker::FrmPicker(const PickerTexts& texts, PickerList files)
    : ProgramDialog(texts.window, texts.caption), files_(std::move(files)) {
    wxArrayString titles;
    for (const auto& title : files_.titles) titles.push_back(toWx(title));
    titles_ = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(320, 240)), titles,
                            wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, texts.list);
    auto* hint = new wxStaticText(this, wxID_ANY, texts.whenEmpty);
    hint->Show(titles.empty());
    auto* cancel =
        new wxButton(this, wxID_CANCEL, "Cancel", wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, "cmdCancel");
    auto* cmdLoad =
        new wxButton(this, wxID_ANY, texts.button, wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, "cmdLoad");
    cmdLoad->SetDefault();
    cmdLoad->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { load(); });
    cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { closeWindow(); });
    titles_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { load(); });

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->AddStretchSpacer();
    buttons->Add(cancel, wxSizerFlags().Border(wxRIGHT));
    buttons->Add(cmdLoad);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(hint, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxTOP | wxRIGHT));
    all->Add(titles_, wxSizerFlags(1).Expand().DoubleBorder(wxALL));
    all->Add(buttons, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    SetSizer(all);
    fit(FromDIP(wxSize(380, 340)));
    if (!titles.empty()) titles_->SetSelection(0);
    titles_->SetFocus();
}

void FrmPicker::load() {
    const int selection = titles_->GetSelection();
    if (selection == wxNOT_FOUND) return;
    closeAndThen([path = files_.paths[static_cast<std::size_t>(selection)]] { openPicked(path); });
}

}  // namespace brasquelin
