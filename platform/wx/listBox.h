// Plain list boxes of the program's dialogs; each is found by its name.
#pragma once

#include <wx/listbox.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brasquelin {

using Entries = std::vector<std::string>;

/// `size` is that on a display without scaling.
wxListBox* makeListBox(wxWindow* parent, const char* name, const wxSize& size, const Entries& entries = {});

/// Shows these entries instead and selects one, the last one where there are not so many.
void showEntries(wxListBox& list, const Entries& entries, int selection);

std::optional<std::size_t> selectedEntry(const wxItemContainerImmutable& list);

/// The Del key does `remove`.
void bindDelete(wxListBox& list, std::function<void()> remove);

/// What the lists of references tell about the double click.
inline constexpr const char* referenceHint = "Dbl click to set in clipboard";

/// A list box whose double click copies the selected entry to the clipboard.
wxListBox* makeReferenceList(wxWindow* parent, const char* name, const wxSize& size, const Entries& references);

}  // namespace brasquelin
