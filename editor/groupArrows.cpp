#include "editor/groupArrows.h"

#include <wx/sizer.h>

#include <string>
#include <utility>

#include "editor/editorListView.h"
#include "platform/wx/buttons.h"

namespace brasquelin {

namespace {

/// Of the buttons' names; those of the command list have none.
std::string nameSuffix(EditorList which) {
    if (which == EditorList::include) return "Include";
    return which == EditorList::variables ? "Var" : "";
}

}  // namespace

GroupArrows::GroupArrows(wxWindow* parent, EditorListView& list, std::function<void(GroupAction)> move)
    : list_(list),
      move_(std::move(move)),
      up_(makeArrow(parent, true)),
      down_(makeArrow(parent, false)),
      column_(new wxBoxSizer(wxVERTICAL)) {
    for (auto* button : {up_, down_}) column_->Add(button, wxSizerFlags().Border(wxBOTTOM));
    for (const auto& type : {wxEVT_LIST_ITEM_SELECTED, wxEVT_LIST_ITEM_DESELECTED}) {
        list_.Bind(type, [this](wxListEvent&) { noteSelection(); });
    }
    list_.Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        if (std::exchange(due_, false)) update();
        event.Skip();
    });
}

wxButton* GroupArrows::makeArrow(wxWindow* parent, bool up) {
    constexpr int side = 20;
    const std::string name = (up ? "cmdUp" : "cmdDown") + nameSuffix(list_.which());
    const GroupAction action = up ? moveSelectedUp : moveSelectedDown;
    auto* button =
        makePictureButton(parent, up ? Picture::moveUp : Picture::moveDown, side, name.c_str(),
                          up ? "Move up (Ctrl+Up)" : "Move down (Ctrl+Down)", [this, action] { move_(action); });
    button->DisableFocusFromKeyboard();  // the Tab key goes from list to list
    return button;
}

void GroupArrows::update() {
    const auto selected = list_.selectedLines();
    up_->Enable(canMoveUp(list_.which(), selected));
    down_->Enable(canMoveDown(list_.which(), selected));
}

/// Each of many lines that are selected at once tells so.
void GroupArrows::noteSelection() {
    due_ = list_.selectedCount() > 1;
    if (!due_) update();
}

}  // namespace brasquelin
