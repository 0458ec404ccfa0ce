// The list control `JobRows`: a row for each job of a run. It looks into the rows and holds none of its own.
#pragma once

#include <wx/listctrl.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace brasquelin {

class RunRows;

class RunRowList : public wxListView {
  public:
    /// The rows outlive the list. `selected` is called when the user has selected another job.
    RunRowList(wxWindow* parent, const RunRows& rows, std::function<void()> selected);

    /// Shows what the rows are now. Cheap when nothing has changed.
    void showChanges();

    /// Jobs count from 1.
    std::optional<std::size_t> selectedJob() const;
    /// Selects a job and scrolls it into view, which does not count as the user's choice.
    void selectJob(std::size_t job);
    /// Selects as the user does.
    void selectJobAt(const wxPoint& place);
    /// Scrolls to it, for the list has become smaller.
    void keepSelectionVisible();
    /// Where a menu for the selected job is to open.
    wxPoint placeOfSelection() const;

  protected:
    wxString OnGetItemText(long item, long column) const override;
    int OnGetItemImage(long item) const override;
    wxListItemAttr* OnGetItemAttr(long item) const override;

  private:
    void makeColumns();
    void fitColumns();
    void refreshVisible();
    void refreshDuration(std::size_t job);
    int widthOf(const std::string& text) const;

    const RunRows& rows_;
    std::uint64_t shownRevision_ = 0;
    std::string shownDuration_;  // of the running job
    bool selecting_ = false;
    mutable wxListItemAttr attribute_;
};

}  // namespace brasquelin
