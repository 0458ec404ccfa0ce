#include "platform/wx/focusFrame.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include "platform/wx/colours.h"

namespace brasquelin {

FocusFrame::FocusFrame(wxWindow* parent) : wxPanel(parent) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { paint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh();
        event.Skip();
    });
}

void FocusFrame::hold(wxWindow& control) {
    constexpr int width = 2;
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(&control, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(width)));
    SetSizer(sizer);
    const auto follow = [this](wxFocusEvent& event) {
        hasFocus_ = event.GetEventType() == wxEVT_SET_FOCUS;
        Refresh();
        event.Skip();
    };
    // Some desktops draw the lines of a list in a window of their own, which takes the keys.
    control.Bind(wxEVT_SET_FOCUS, follow);
    control.Bind(wxEVT_KILL_FOCUS, follow);
}

void FocusFrame::paint() {
    wxAutoBufferedPaintDC drawing(this);
    const wxColour ground = GetParent()->GetBackgroundColour();
    const wxColour line = mixed(ground, GetParent()->GetForegroundColour(), 0.3);
    drawing.SetBrush(ground);
    drawing.SetPen(hasFocus_ ? wxPen(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT), FromDIP(4)) : wxPen(line));
    drawing.DrawRectangle(GetClientRect());
}

}  // namespace brasquelin
