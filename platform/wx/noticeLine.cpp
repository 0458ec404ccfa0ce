#include "platform/wx/noticeLine.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "platform/wx/colours.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

/// A tinge of what is selected on the window's own ground, so that the window's texts are readable on it.
wxColour tingedGround() {
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    const wxColour tint = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
    return mixed(ground, tint, 0.2);
}

}  // namespace

NoticeLine::NoticeLine(wxWindow* parent, const char* name)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE, name),
      text_(new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_MIDDLE)),
      buttons_(new wxBoxSizer(wxHORIZONTAL)) {
    Hide();
    SetBackgroundColour(tingedGround());
    text_->SetMinSize(wxSize(0, -1));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(text_, wxSizerFlags(1).CenterVertical().DoubleBorder(wxLEFT | wxRIGHT));
    row->Add(buttons_, wxSizerFlags().Border(wxTOP | wxBOTTOM | wxRIGHT));
    SetSizer(row);
}

void NoticeLine::tell(std::string_view text, const std::vector<NoticeButton>& buttons) {
    if (IsShown() && text_->GetLabelText() == toWx(text)) return;
    text_->SetLabelText(toWx(text));
    text_->SetToolTip(toWx(text));
    buttons_->Clear(true);
    for (const auto& [caption, name, press] : buttons) {
        // Behind the event: the button goes when the line tells something else.
        auto* button = makeButton(this, caption, name, [this, press = press] {
            hide();
            CallAfter(press);
        });
        buttons_->Add(button, wxSizerFlags().Border(wxLEFT));
    }
    Show();
    arrange();
}

void NoticeLine::hide() {
    Hide();
    arrange();
}

void NoticeLine::arrange() {
    Layout();
    GetParent()->Layout();
    GetParent()->Refresh();  // what has moved leaves traces on Windows
}

}  // namespace brasquelin
