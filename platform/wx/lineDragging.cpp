#include "platform/wx/lineDragging.h"

#include <wx/dataobj.h>
#include <wx/dnd.h>
#include <wx/settings.h>
#include <wx/window.h>

#include <algorithm>
#include <utility>

#include "platform/wx/lineList.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

/// Takes text and files.
class LineDragging::Target : public wxDropTarget {
  public:
    explicit Target(LineDragging& dragging) : dragging_(dragging) {
        auto* both = new wxDataObjectComposite;
        both->Add(text_, true);
        if (dragging.actions_.open) both->Add(files_);
        if (!dragging.actions_.open) delete std::exchange(files_, nullptr);
        received_ = both;
        SetDataObject(both);
    }

    wxDragResult OnDragOver(wxCoord x, wxCoord y, wxDragResult def) override {
        if (bringsFiles()) return wxDragCopy;
        dragging_.showMark({x, y});
        if (def == wxDragNone) return def;
        return dragging_.isSource_ ? wxDragMove : wxDragCopy;
    }
    void OnLeave() override { dragging_.hideMark(); }
    bool OnDrop(wxCoord /*x*/, wxCoord /*y*/) override {
        dragging_.hideMark();
        return true;
    }
    wxDragResult OnData(wxCoord x, wxCoord y, wxDragResult def) override {
        if (!GetData()) return wxDragNone;
        if (files_ && received_->GetReceivedFormat() == wxDF_FILENAME) {
            std::vector<std::string> paths;
            for (const auto& name : files_->GetFilenames()) paths.push_back(fromWx(name));
            dragging_.dropFiles(paths);
        } else {
            dragging_.dropText({x, y}, fromWx(text_->GetText()));
        }
        return def;
    }

  private:
    /// Before the data is there only GTK tells.
    bool bringsFiles() {
#ifdef __WXGTK__
        return GetMatchingPair() == wxDF_FILENAME;
#else
        return false;
#endif
    }

    LineDragging& dragging_;
    wxTextDataObject* text_ = new wxTextDataObject;
    wxFileDataObject* files_ = new wxFileDataObject;
    wxDataObjectComposite* received_ = nullptr;
};

LineDragging::LineDragging(LineList& list, DragActions actions) : list_(list), actions_(std::move(actions)) {
    list_.SetDropTarget(new Target(*this));
    list_.Bind(wxEVT_LIST_BEGIN_DRAG, [this](wxListEvent&) { drag(); });
}

LineDragging::~LineDragging() = default;

/// The list may change only when the desktop has done with the drag.
void LineDragging::drag() {
    wxTextDataObject text(toWx(actions_.text()));
    if (text.GetText().empty()) return;
    wxDropSource source(text, &list_);
    isSource_ = true;
    droppedOnSelf_.reset();
    source.DoDragDrop(wxDrag_AllowMove);
    isSource_ = false;
    hideMark();
    if (const auto before = std::exchange(droppedOnSelf_, {})) actions_.moveTo(*before);
}

std::size_t LineDragging::lineFor(const wxPoint& place) const {
    const auto count = static_cast<std::size_t>(list_.GetItemCount());
    int flags = 0;
    const long item = list_.HitTest(wxPoint(1, place.y), flags);
    wxRect row;
    if (item == wxNOT_FOUND || !list_.GetItemRect(item, row)) return place.y < 0 ? 0 : count;
    return std::min(count, static_cast<std::size_t>(item) + (place.y > row.y + row.height / 2 ? 1 : 0));
}

void LineDragging::showMark(const wxPoint& place) {
    const std::size_t before = lineFor(place);
    wxRect row;
    int y = 0;
    if (before > 0 && list_.GetItemRect(static_cast<long>(before) - 1, row)) y = row.GetBottom();
    if (!mark_) {
        mark_ = new wxWindow(&list_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, "dropMark");
        mark_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    }
    const int height = list_.FromDIP(3);
    mark_->SetSize(0, std::clamp(y - height / 2, 0, list_.GetClientSize().y - height), list_.GetClientSize().x, height);
    mark_->Show();
    scrollAt(place);
}

void LineDragging::hideMark() {
    if (mark_) mark_->Hide();
}

/// A line further with each movement at the border.
void LineDragging::scrollAt(const wxPoint& place) {
    const long count = list_.GetItemCount();
    const int border = list_.GetCharHeight();
    const long top = list_.GetTopItem();
    if (count == 0) return;
    if (place.y < border) list_.EnsureVisible(std::max(0L, top - 1));
    if (place.y > list_.GetClientSize().y - border) {
        list_.EnsureVisible(std::min(count - 1, top + list_.GetCountPerPage()));
    }
}

void LineDragging::dropText(const wxPoint& place, const std::string& text) {
    const std::size_t before = lineFor(place);
    if (isSource_) {
        droppedOnSelf_ = before;
    } else {
        list_.CallAfter([this, before, text] { actions_.insert(before, text); });
    }
}

void LineDragging::dropFiles(const std::vector<std::string>& paths) {
    list_.CallAfter([this, paths] { actions_.open(paths); });
}

}  // namespace brasquelin
