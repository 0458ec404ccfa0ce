#include "platform/wx/listBox.h"

#include <algorithm>
#include <utility>

#include "platform/desktop.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

wxListBox* makeListBox(wxWindow* parent, const char* name, const wxSize& size, const Entries& entries) {
    return new wxListBox(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(size), toWx(entries),
                         wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, name);
}

void showEntries(wxListBox& list, const Entries& entries, int selection) {
    list.Set(toWx(entries));
    list.SetSelection(std::min(selection, static_cast<int>(entries.size()) - 1));
}

std::optional<std::size_t> selectedEntry(const wxItemContainerImmutable& list) {
    const int selection = list.GetSelection();
    if (selection == wxNOT_FOUND) return std::nullopt;
    return static_cast<std::size_t>(selection);
}

void bindDelete(wxListBox& list, std::function<void()> remove) {
    list.Bind(wxEVT_KEY_DOWN, [remove = std::move(remove)](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (key == WXK_DELETE || key == WXK_NUMPAD_DELETE) return remove();
        event.Skip();
    });
}

wxListBox* makeReferenceList(wxWindow* parent, const char* name, const wxSize& size, const Entries& references) {
    auto* list = makeListBox(parent, name, size, references);
    list->SetToolTip(referenceHint);
    list->Bind(wxEVT_LISTBOX_DCLICK, [list](wxCommandEvent&) {
        if (selectedEntry(*list)) desktop().copyToClipboard(fromWx(list->GetStringSelection()));
    });
    return list;
}

}  // namespace brasquelin
