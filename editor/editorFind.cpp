#include "editor/editorFind.h"

#include <wx/sizer.h>

#include <utility>

#include "editor/editorState.h"
#include "platform/wx/findBar.h"

namespace brasquelin {

EditorFind::EditorFind(wxWindow* parent, wxSizer& place, Lists lists) : lists_(std::move(lists)) {
    const auto search = [this](const std::string& text) {
        text_ = text;
        find(SearchWay::here);
    };
    const auto close = [this] {
        bar_->close();
        lists_.focus();
    };
    bar_ = new FindBar(parent, "Close",
                       {.search = search,
                        .forward = [this] { again(SearchWay::forward); },
                        .back = [this] { again(SearchWay::back); },
                        .close = close});
    bar_->Hide();
    place.Add(bar_, wxSizerFlags().Expand());
}

void EditorFind::open() {
    from_ = lists_.selected();
    bar_->open();
}

void EditorFind::again(SearchWay way) {
    if (text_.empty()) return open();
    from_ = lists_.selected();
    find(way);
}

void EditorFind::find(SearchWay way) {
    const auto [place, told] = search(editorState.document, text_, from_, way);
    bar_->tellFound(told);
    if (place) lists_.select(*place);
}

}  // namespace brasquelin
