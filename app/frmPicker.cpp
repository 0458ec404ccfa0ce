#include "app/frmPicker.h"

#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

#include "app/openFile.h"
#include "platform/wx/accessibleNames.h"
#include "platform/wx/buttons.h"
#include "platform/wx/listBox.h"

namespace brasquelin {

FrmPicker::FrmPicker(const PickerTexts& texts, PickerList files)
    : ProgramDialog(texts.window, texts.caption), files_(std::move(files)) {
    const bool empty = files_.titles.empty();
    titles_ = makeListBox(this, texts.list, wxSize(320, 240), files_.titles);
    nameForAssistiveTools(*titles_, texts.listName);
    auto* hint = new wxStaticText(this, wxID_ANY, texts.whenEmpty);
    hint->Show(empty);
    auto* cancel = makeCancelButton(this);
    auto* cmdLoad = makeButton(this, texts.button, "cmdLoad", [this] { load(); });
    titles_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { load(); });

    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(hint, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxTOP | wxRIGHT));
    all->Add(titles_, wxSizerFlags(1).Expand().DoubleBorder(wxALL));
    all->Add(makeButtonRow(cancel, cmdLoad), wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
    SetSizer(all);
    fit(FromDIP(wxSize(380, 340)));
    if (!empty) titles_->SetSelection(0);
    titles_->SetFocus();
}

void FrmPicker::load() {
    if (const auto selected = selectedEntry(*titles_)) {
        closeAndThen([path = files_.paths[*selected]] { openPicked(path); });
    }
}

}  // namespace brasquelin
