#include "platform/manual.h"

#include <string>

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace brasquelin {

void openManual() {
    const std::string page = joinPath(programDirectory(), "manual.html");
    if (fileExists(page)) return desktop().openLink(page);
    desktop().showMessage("The manual '" + page + "' is not there.", "Brasquelin", Icon::exclamation);
}

}  // namespace brasquelin
