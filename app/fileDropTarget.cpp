#include "app/fileDropTarget.h"

#include <wx/dialog.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/openDropped.h"
#include "app/openFile.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

bool dialogIsOpen() {
    return std::any_of(wxTopLevelWindows.begin(), wxTopLevelWindows.end(), [](wxWindow* window) {
        const auto* dialog = dynamic_cast<wxDialog*>(window);
        return dialog != nullptr && dialog->IsModal();
    });
}

}  // namespace

bool dropFiles(wxWindow& window, const std::vector<std::string>& paths) {
    if (dialogIsOpen() && !runState.running) return false;
    window.CallAfter([paths] { openDropped(paths); });
    return true;
}

bool FileDropTarget::OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, const wxArrayString& names) {
    std::vector<std::string> paths;
    for (const auto& name : names) paths.push_back(fromWx(name));
    return dropFiles(window_, paths);
}

}  // namespace brasquelin
