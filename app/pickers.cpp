#include "app/pickers.h"

#include "config/configFile.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"

namespace brasquelin {

namespace {

std::string titleOf(const std::string& path, FileKind kind) {
    try {
        return std::string(titleIn(readFirstLine(path), kind));
    } catch (const RunTimeError&) {
        return {};
    }
}

PickerList listFolder(const std::string& folder, FileKind kind) {
    PickerList list;
    for (const auto& name : listFiles(folder)) {
        if (!hasExtension(name, kind)) continue;
        list.paths.push_back(joinPath(folder, name));
        list.titles.push_back(titleOf(list.paths.back(), kind));
    }
    return list;
}

}  // namespace

PickerList listProfiles() {
    return listFolder(settings.profileDirectory, FileKind::profile);
}

PickerList listLibraries() {
    return listFolder(settings.libraryPath, FileKind::library);
}

}  // namespace brasquelin
