// A drop-down that only offers its entries: one stop of the Tab key, opened by a click anywhere on it, and typing
// selects the entry that starts so.
#pragma once

#include <wx/combobox.h>
#include <wx/odcombo.h>

#include <string>
#include <vector>

namespace brasquelin {

#ifdef __WXGTK__
/// GTK's own one is a text box with an arrow: two stops, and the box takes no typing.
using DropDownControl = wxOwnerDrawnComboBox;
#else
using DropDownControl = wxComboBox;
#endif

class DropDown : public DropDownControl {
  public:
    /// Sends wxEVT_COMBOBOX when the user selects; nothing is selected at first.
    DropDown(wxWindow* parent, const std::vector<std::string>& entries, const wxString& name);
    ~DropDown() override;

    /// The selected entry.
    wxString GetStringSelection() const override { return wxItemContainer::GetStringSelection(); }

  private:
    void handleKey(wxKeyEvent& event);
    void handleWheel(wxMouseEvent& event);

    bool open_ = false;
};

}  // namespace brasquelin
