// The list control `JobList`: it looks into the job list and holds no lines of its own.
#pragma once

#include <wx/listctrl.h>

#include <cstdint>
#include <optional>

namespace brasquelin {

class FrmJobList : public wxListView {
  public:
    explicit FrmJobList(wxWindow* parent);

    /// Shows what the job list holds now. Cheap when nothing has changed.
    void showChanges();

    std::optional<std::size_t> selectedLine() const;

    /// Selects the line at a place in the control; a place without one changes nothing.
    void selectLineAt(const wxPoint& place);
    /// Where a menu for the selected line is to open.
    wxPoint placeOfSelection() const;

  protected:
    wxString OnGetItemText(long item, long column) const override;

  private:
    void widenColumn();
    void copySelected();

    std::optional<std::uint64_t> shownRevision_;
};

}  // namespace brasquelin
