// Lines of a list dragged with the mouse: within the list, and as text from and to others.
#pragma once

#include <wx/gdicmn.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class wxWindow;

namespace brasquelin {

class LineList;

/// What a list does with dragged lines. A line is named by its number; one past the last is behind all of them.
struct DragActions {
    /// The selected lines as text; an empty one is not dragged.
    std::function<std::string()> text;
    /// The selected lines were dropped in front of a line of the same list.
    std::function<void(std::size_t before)> moveTo;
    /// Text from elsewhere was dropped.
    std::function<void(std::size_t before, const std::string& text)> insert;
    /// Files were dropped; without it they are left to the window around.
    std::function<void(const std::vector<std::string>& paths)> open = {};
};

class LineDragging {
  public:
    LineDragging(LineList& list, DragActions actions);
    ~LineDragging();
    LineDragging(const LineDragging&) = delete;
    LineDragging& operator=(const LineDragging&) = delete;

    /// The line in front of which is dropped what is dropped there.
    std::size_t lineFor(const wxPoint& place) const;

  private:
    class Target;

    void drag();
    void showMark(const wxPoint& place);
    void hideMark();
    void scrollAt(const wxPoint& place);
    void dropText(const wxPoint& place, const std::string& text);
    void dropFiles(const std::vector<std::string>& paths);

    LineList& list_;
    DragActions actions_;
    wxWindow* mark_ = nullptr;  // between the lines, where they would be dropped
    bool isSource_ = false;
    std::optional<std::size_t> droppedOnSelf_;
};

}  // namespace brasquelin
