#include "platform/wx/mnemonics.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/toplevel.h>

namespace brasquelin {

namespace {

/// The label of a text box would be its text.
bool canBePressed(const wxWindow& control) {
    return dynamic_cast<const wxButton*>(&control) || dynamic_cast<const wxCheckBox*>(&control) ||
           dynamic_cast<const wxRadioButton*>(&control);
}

bool hasMnemonic(const wxWindow& control, int letter) {
    if (!canBePressed(control)) return false;
    const wxString label = control.GetLabel();
    const int place = wxControl::FindAccelIndex(label);
    if (place == wxNOT_FOUND) return false;
    return wxToupper(wxControl::RemoveMnemonics(label)[static_cast<std::size_t>(place)]) == wxUniChar(letter);
}

wxWindow* findMnemonic(wxWindow& parent, int letter) {
    for (auto* child : parent.GetChildren()) {
        if (!child->IsShown() || !child->IsEnabled() || child->IsTopLevel()) continue;
        if (hasMnemonic(*child, letter)) return child;
        if (auto* found = findMnemonic(*child, letter)) return found;
    }
    return nullptr;
}

void send(wxWindow& control, wxEventType type, int value) {
    wxCommandEvent event(type, control.GetId());
    event.SetEventObject(&control);
    event.SetInt(value);
    control.HandleWindowEvent(event);
}

void press(wxWindow& control) {
    if (auto* box = dynamic_cast<wxCheckBox*>(&control)) {
        box->SetValue(!box->GetValue());
        send(control, wxEVT_CHECKBOX, box->GetValue() ? 1 : 0);
    } else if (auto* option = dynamic_cast<wxRadioButton*>(&control)) {
        option->SetFocus();
        option->SetValue(true);
        send(control, wxEVT_RADIOBUTTON, 1);
    } else {
        send(control, wxEVT_BUTTON, 0);
    }
}

}  // namespace

void bindMnemonics(wxTopLevelWindow& window) {
    window.Bind(wxEVT_CHAR_HOOK, [&window](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        const bool letter = event.GetModifiers() == wxMOD_ALT && key >= 'A' && key <= 'Z';
        auto* control = letter ? findMnemonic(window, key) : nullptr;
        if (!control) return event.Skip();
        window.CallAfter([control] { press(*control); });  // a dialog that opens now would get the key, too
    });
}

}  // namespace brasquelin
