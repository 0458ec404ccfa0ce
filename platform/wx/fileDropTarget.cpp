#include "platform/wx/fileDropTarget.h"

#include <wx/dialog.h>

#include <algorithm>
#include <utility>

#include "platform/wx/wxText.h"

namespace brasquelin {

bool dialogIsOpen() {
    return std::any_of(wxTopLevelWindows.begin(), wxTopLevelWindows.end(), [](wxWindow* window) {
        const auto* dialog = dynamic_cast<wxDialog*>(window);
        return dialog != nullptr && dialog->IsModal();
    });
}

FileDropTarget::FileDropTarget(Take take) : take_(std::move(take)) {}

bool FileDropTarget::OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, const wxArrayString& names) {
    std::vector<std::string> paths;
    for (const auto& name : names) paths.push_back(fromWx(name));
    return take_(paths);
}

}  // namespace brasquelin
