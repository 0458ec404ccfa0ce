#include "platform/wx/oneLine.h"

#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "platform/desktop.h"
#include "platform/wx/wxText.h"
#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

bool hasBreak(const wxString& text) {
    return text.find_first_of("\r\n") != wxString::npos;
}

/// Some desktops paste no more than the first line.
void paste(wxTextCtrl& box, wxClipboardTextEvent& event) {
    const wxString text = toWx(desktop().clipboardText());
    if (!hasBreak(text)) return event.Skip();
    box.WriteText(toWx(onOneLine(fromWx(text))));
}

/// What came in another way.
void joinLines(wxTextCtrl& box, wxCommandEvent& event) {
    const wxString text = box.GetValue();
    if (!hasBreak(text)) return event.Skip();
    const long cursor = box.GetInsertionPoint();
    box.SetValue(toWx(onOneLine(fromWx(text))));
    box.SetInsertionPoint(cursor);
}

/// After the event, when the cursor stands where it will be.
void showSigns(wxTextCtrl& box, const std::string& text) {
    const wxString visible = toWx(visibleText(text));
    if (box.GetValue() == visible) return;
    const long fromEnd = box.GetLastPosition() - box.GetInsertionPoint();
    box.ChangeValue(visible);
    box.SetInsertionPoint(std::max(0L, box.GetLastPosition() - fromEnd));
}

}  // namespace

wxTextCtrl* makeTextBox(wxWindow* parent, const wxString& name, std::string_view text,
                        std::function<void(std::string)> changed) {
    auto* box =
        new wxTextCtrl(parent, wxID_ANY, toWx(text), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, name);
    if (changed) {
        box->Bind(wxEVT_TEXT,
                  [box, changed = std::move(changed)](wxCommandEvent&) { changed(fromWx(box->GetValue())); });
    }
    keepOnOneLine(*box);
    return box;
}

void keepOnOneLine(wxTextCtrl& box) {
    box.Bind(wxEVT_TEXT_PASTE, [&box](wxClipboardTextEvent& event) { paste(box, event); });
    box.Bind(wxEVT_TEXT, [&box](wxCommandEvent& event) { joinLines(box, event); });
}

void keepExact(wxTextCtrl& box, std::string& text) {
    box.Bind(wxEVT_TEXT, [&box, &text](wxCommandEvent& event) {
        const std::string shown = fromWx(box.GetValue());
        text = withEdit(text, shown);
        if (visibleText(text) != shown) box.CallAfter([&box, &text] { showSigns(box, text); });
        event.Skip();
    });
    keepOnOneLine(box);
}

}  // namespace brasquelin
