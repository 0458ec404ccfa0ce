#include "platform/wx/dropDown.h"

#include "platform/wx/wxText.h"

namespace brasquelin {

DropDown::DropDown(wxWindow* parent, const std::vector<std::string>& entries, const wxString& name)
    : DropDownControl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, toWx(entries), wxCB_READONLY,
                      wxDefaultValidator, name) {
    const auto opens = [this](bool open) {
        return [this, open](wxCommandEvent& event) {
            open_ = open;
            event.Skip();
        };
    };
    Bind(wxEVT_COMBOBOX_DROPDOWN, opens(true));
    Bind(wxEVT_COMBOBOX_CLOSEUP, opens(false));
    Bind(wxEVT_CHAR_HOOK, &DropDown::handleKey, this);
    Bind(wxEVT_MOUSEWHEEL, &DropDown::handleWheel, this);
#ifdef __WXGTK__
    constexpr int besideTextBoxes = 6;
    SetMargins(FromDIP(besideTextBoxes));
#endif
}

/// The entries draw themselves by what the control still is.
DropDown::~DropDown() {
    if (open_) Dismiss();
}

/// While the entries are shown, the keys are theirs and not the dialog's.
void DropDown::handleKey(wxKeyEvent& event) {
    if (!open_) return event.Skip();
#ifdef __WXGTK__
    for (const auto type : {wxEVT_KEY_DOWN, wxEVT_CHAR}) {
        wxKeyEvent key(type, event);
        key.StopPropagation();  // the entries' window would send it to the entries, again and again
        if (GetPopupControl()->GetControl()->HandleWindowEvent(key)) return;
    }
#endif
    event.DoAllowNextEvent();
}

/// Whoever scrolls through a form must not change what the pointer comes across.
void DropDown::handleWheel(wxMouseEvent& event) {
    if (open_) {
        event.Skip();
    } else {
        GetParent()->HandleWindowEvent(event);
    }
}

}  // namespace brasquelin
