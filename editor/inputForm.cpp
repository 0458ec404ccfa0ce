#include "editor/inputForm.h"

#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/wx/buttons.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/popUpMenu.h"
#include "platform/wx/wxText.h"
#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

InputForm::InputForm(ValueQuestion question, ValueAnswer& answer)
    : ProgramDialog("inputForm", "Enter value"), question_(std::move(question)), answer_(answer) {
    auto* head = makeHead();
    valueBox_ = makeTextBox(this, "valueBox", question_.defaultText);
    Command3_ = makePictureButton(this, Picture::reference, 16, "Command3", "Insert a reference",
                                  [this] { offerReferences(); });

    auto* value = new wxBoxSizer(wxHORIZONTAL);
    value->Add(valueBox_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT));
    value->Add(Command3_, wxSizerFlags().CenterVertical());
    auto* all = new wxBoxSizer(wxVERTICAL);
    const auto part = wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxTOP | wxRIGHT);
    all->Add(head, part);
    all->Add(value, part);
    if (!question_.about.empty()) all->Add(makeAbout(), part);
    all->AddStretchSpacer();
    all->Add(makeButtons(), wxSizerFlags().Expand().DoubleBorder(wxALL));
    SetSizer(all);
    fit(FromDIP(wxSize(520, 120)));
    valueBox_->SetFocus();
    valueBox_->SetInsertionPointEnd();
    if (question_.number > 0) valueBox_->SelectAll();  // a start value is typed over
}

wxSizer* InputForm::makeHead() {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(this, wxID_ANY, toWxLines(question_.prompt), wxDefaultPosition, wxDefaultSize, 0,
                              "descriptionCaption"),
             wxSizerFlags(1));
    if (question_.count < 2) return row;
    const auto place = wxString::Format("%zu of %zu", question_.number, question_.count);
    row->Add(new wxStaticText(this, wxID_ANY, place, wxDefaultPosition, wxDefaultSize, 0, "placeCaption"));
    return row;
}

/// A long list of choices ends in an ellipsis.
wxStaticText* InputForm::makeAbout() {
    constexpr std::size_t mostLines = 12;
    std::vector<std::string_view> lines = split(question_.about, "\n");
    const bool longer = lines.size() > mostLines;
    lines.resize(std::min(lines.size(), mostLines));
    std::string text;
    for (const auto line : lines) text.append(text.empty() ? "" : "\n").append(shownLine(line));
    if (longer) text.append("\n...");
    return new wxStaticText(this, wxID_ANY, toWx(text), wxDefaultPosition, wxDefaultSize,
                            wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE, "aboutCaption");
}

wxSizer* InputForm::makeButtons() {
    auto* cmdCancel = makeCancelButton(this, "&Cancel");
    auto* cmdOK = makeButton(this, "OK", "cmdOK", [this] {
        endWith({ValueEnd::given, fromWx(valueBox_->GetValue())});
    });
    auto* row = makeButtonRow(cmdCancel, cmdOK);
    if (question_.count < 2) return row;
    auto* cmdStop = makeButton(this, "&Stop", "cmdStop", [this] { endWith({ValueEnd::stopped}); });
    cmdStop->SetToolTip("Ask for no more values and add nothing");
    row->Insert(0, cmdStop);
    return row;
}

void InputForm::endWith(ValueAnswer answer) {
    answer_ = std::move(answer);
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
