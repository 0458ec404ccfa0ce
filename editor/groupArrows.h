// The two buttons beside a list that move its groups, grey at the first and at the last one.
#pragma once

#include <functional>

#include "editor/groupActions.h"

class wxButton;
class wxSizer;
class wxWindow;

namespace brasquelin {

class EditorListView;

class GroupArrows {
  public:
    /// `move` does what is asked for with the list.
    GroupArrows(wxWindow* parent, EditorListView& list, std::function<void(GroupAction)> move);

    wxSizer* column() const { return column_; }
    void update();

  private:
    wxButton* makeArrow(wxWindow* parent, bool up);
    void noteSelection();

    EditorListView& list_;
    std::function<void(GroupAction)> move_;
    wxButton* up_;
    wxButton* down_;
    wxSizer* column_;
    bool due_ = false;
};

}  // namespace brasquelin
