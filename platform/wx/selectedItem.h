// The selected item of a list that may have very many.
#pragma once

#include <wx/listctrl.h>

namespace brasquelin {

/// The focused item when it is selected, else the first selected one; -1 for none. The list itself would look at each
/// item from the first one on.
inline long selectedItem(const wxListView& list) {
    if (list.GetSelectedItemCount() == 0) return -1;
    const long focused = list.GetFocusedItem();
    return focused >= 0 && list.IsSelected(focused) ? focused : list.GetFirstSelected();
}

}  // namespace brasquelin
