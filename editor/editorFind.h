// The editor's find bar: it looks through all lists and leads to the line that was found.
#pragma once

#include <functional>
#include <string>

#include "editor/documentSearch.h"

class wxSizer;
class wxWindow;

namespace brasquelin {

class FindBar;

class EditorFind {
  public:
    struct Lists {
        std::function<DocumentPlace()> selected;  // where the user is
        std::function<void(DocumentPlace)> select;
        std::function<void()> focus;  // back to the lists
    };

    /// The bar comes at the end of the sizer.
    EditorFind(wxWindow* parent, wxSizer& place, Lists lists);

    void open();
    void again(SearchWay way);

  private:
    void find(SearchWay way);

    Lists lists_;
    FindBar* bar_;
    std::string text_;
    DocumentPlace from_;
};

}  // namespace brasquelin
