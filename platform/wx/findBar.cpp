#include "platform/wx/findBar.h"

#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

#include "platform/wx/accessibleNames.h"
#include "platform/wx/buttons.h"
#include "platform/wx/oneLine.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

FindBar::FindBar(wxWindow* parent, const char* closeCaption, Actions actions)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "findBar"),
      actions_(std::move(actions)) {
    constexpr int characters = 40;
    txtFind_ = makeTextBox(this, "txtFind", "", [this](const std::string& text) { actions_.search(text); });
    txtFind_->SetMinSize(wxSize(characters * GetCharWidth(), -1));
    nameForAssistiveTools(*txtFind_, "Find");
    txtFind_->Bind(wxEVT_CHAR_HOOK, &FindBar::handleKey, this);
    lblFound_ = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblFound");
    auto* close = makeButton(this, closeCaption, "cmdCloseFind", [this] { actions_.close(); });
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(this, wxID_ANY, "Find:"), wxSizerFlags().CenterVertical().Border());
    row->Add(txtFind_, wxSizerFlags().CenterVertical().Border(wxTOP | wxBOTTOM));
    row->Add(lblFound_, wxSizerFlags(1).CenterVertical().DoubleBorder(wxLEFT | wxRIGHT));
    if (actions_.back) {
        for (auto* button : {makeButton(this, "&Previous", "cmdFindBack", [this] { actions_.back(); }),
                             makeButton(this, "&Next", "cmdFindNext", [this] { actions_.forward(); })}) {
            row->Add(button, wxSizerFlags().CenterVertical().Border(wxLEFT));
        }
    }
    row->Add(close, wxSizerFlags().CenterVertical().Border());
    SetSizer(row);
}

void FindBar::open() {
    Show();
    GetParent()->Layout();
    txtFind_->SetFocus();
    txtFind_->SelectAll();
}

void FindBar::close() {
    txtFind_->ChangeValue("");
    Hide();
    GetParent()->Layout();
}

void FindBar::tellFound(const std::string& text) {
    if (lblFound_->GetLabelText() != toWx(text)) lblFound_->SetLabelText(toWx(text));
}

void FindBar::handleKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool enters = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    const bool plain = !event.HasAnyModifiers();
    const bool shifted = event.GetModifiers() == wxMOD_SHIFT;
    if (plain && key == WXK_ESCAPE) return actions_.close();
    if (plain && (enters || key == WXK_DOWN)) return actions_.forward();
    if (actions_.back && ((shifted && enters) || (plain && key == WXK_UP))) return actions_.back();
    event.Skip();
}

}  // namespace brasquelin
