#include "app/dropFiles.h"

#include <wx/window.h>

#include "app/openDropped.h"
#include "app/openFile.h"
#include "platform/wx/fileDropTarget.h"

namespace brasquelin {

bool dropFiles(wxWindow& window, const std::vector<std::string>& paths) {
    if (dialogIsOpen() && !runState.running) return false;
    window.CallAfter([paths] { openDropped(paths); });
    return true;
}

}  // namespace brasquelin
