#include "editor/inputForm.h"

#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

#include "platform/wx/buttons.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

InputForm::InputForm(ValueQuestion question, std::optional<std::string>& answer)
    : ProgramDialog("inputForm", "Enter value"), question_(std::move(question)), answer_(answer) {
    auto* descriptionCaption = new wxStaticText(this, wxID_ANY, toWxLines(question_.prompt), wxDefaultPosition,
                                                wxDefaultSize, 0, "descriptionCaption");
    valueBox_ = makeTextBox(this, "valueBox", question_.defaultText);
    Command3_ = makePictureButton(this, Picture::reference, 16, "Command3", "Insert a reference",
                                  [this] { offerReferences(); });
    auto* cmdCancel = makeCancelButton(this, "&Cancel");
    auto* cmdOK = makeButton(this, "OK", "cmdOK", [this] { confirm(); });

    auto* value = new wxBoxSizer(wxHORIZONTAL);
    value->Add(valueBox_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT));
    value->Add(Command3_, wxSizerFlags().CenterVertical());
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(descriptionCaption, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxTOP | wxRIGHT));
    all->Add(value, wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxTOP | wxRIGHT));
    all->AddStretchSpacer();
    all->Add(makeButtonRow(cmdCancel, cmdOK), wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(all);
    fit(FromDIP(wxSize(520, 120)));
    valueBox_->SetFocus();
    valueBox_->SetInsertionPointEnd();
}

void InputForm::confirm() {
    answer_ = fromWx(valueBox_->GetValue());
    closeWindow();
}

void InputForm::offerReferences() {
    if (question_.references.empty()) return;
    wxMenu mnuvar;
    for (const auto& reference : question_.references) {
        const wxString caption = toWx(reference);
        wxString label = caption;
        label.Replace("&", "&&");
        const int id = mnuvar.Append(wxID_ANY, label)->GetId();
        mnuvar.Bind(
            wxEVT_MENU, [this, caption](wxCommandEvent&) { insert(caption); }, id);
    }
    const wxRect button = Command3_->GetRect();
    popUpMenu(*this, mnuvar, wxPoint(button.x + button.width, button.y + button.height));
}

/// Replaces the selected part of the value; nothing selected: inserts at the cursor.
void InputForm::insert(const wxString& reference) {
    valueBox_->WriteText(reference);
    const long cursor = valueBox_->GetInsertionPoint();
    valueBox_->SetFocus();
    valueBox_->SetSelection(cursor, cursor);
}

}  // namespace brasquelin
