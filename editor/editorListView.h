// One of the editor's three lists: it looks into the document and holds no lines of its own.
#pragma once

#include "editor/problems.h"
#include "editor/profileDocument.h"
#include "platform/wx/lineList.h"

namespace brasquelin {

class EditorListView : public LineList {
  public:
    EditorListView(wxWindow* parent, EditorList which, const char* name);

    EditorList which() const { return which_; }

    /// Shows what the document holds now. Lines that were added at the end are brought into view, the first of them
    /// selected.
    void showChanges();
    /// The same for a document that has taken the place of another: its first lines, none selected.
    void showFromStart();

  protected:
    std::size_t lineCount() const override;
    std::string_view line(std::size_t index) const override;
    std::optional<std::size_t> longestLine() const override { return longest_; }
    wxString wholeText(std::size_t index) const override;
    wxItemAttr* OnGetItemAttr(long item) const override;
    void copySelected() override;

  private:
    const std::vector<std::string>& lines() const;
    void findLongest();
    bool isAttribute(long item) const;
    std::optional<Severity> severityOf(long item) const;

    EditorList which_;
    std::optional<std::size_t> longest_;
    mutable wxItemAttr attributeLook_;
    mutable wxItemAttr problemLook_;
};

}  // namespace brasquelin
