#include "platform/wx/mnemonics.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/menu.h>
#include <wx/radiobut.h>
#include <wx/toplevel.h>

#include <set>

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

using Letters = std::set<wxUniChar>;

/// Of an entry's caption, in front of its key.
wxString captionIn(const wxString& label) {
    return label.BeforeFirst('\t');
}

void noteLetter(const wxMenuItem& item, Letters& taken) {
    const wxString caption = captionIn(item.GetItemLabel());
    const int place = wxControl::FindAccelIndex(caption);
    if (place == wxNOT_FOUND) return;
    taken.insert(wxToupper(wxControl::RemoveMnemonics(caption)[static_cast<std::size_t>(place)]));
}

/// Beginnings of words come before other letters.
int freeLetterIn(const wxString& caption, const Letters& taken) {
    for (const bool atWord : {true, false}) {
        for (std::size_t i = 0; i < caption.size(); ++i) {
            const bool begins = i == 0 || caption[i - 1] == ' ';
            if (begins == atWord && wxIsalpha(caption[i]) && !taken.contains(wxToupper(caption[i]))) {
                return static_cast<int>(i);
            }
        }
    }
    return wxNOT_FOUND;
}

void giveLetter(wxMenuItem& item, Letters& taken) {
    const wxString label = item.GetItemLabel();
    const wxString caption = captionIn(label);
    if (item.IsSeparator() || caption.Contains("&")) return;
    const int place = freeLetterIn(caption, taken);
    if (place == wxNOT_FOUND) return;
    taken.insert(wxToupper(caption[static_cast<std::size_t>(place)]));
    wxString marked = label;
    item.SetItemLabel(marked.insert(static_cast<std::size_t>(place), "&"));
}

}  // namespace

void giveMnemonics(wxMenu& menu) {
    Letters taken;
    for (const auto* item : menu.GetMenuItems()) noteLetter(*item, taken);
    for (auto* item : menu.GetMenuItems()) {
        giveLetter(*item, taken);
        if (item->GetSubMenu()) giveMnemonics(*item->GetSubMenu());
    }
}

void giveMnemonics(wxMenuBar& bar) {
    for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) giveMnemonics(*bar.GetMenu(i));
}

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
