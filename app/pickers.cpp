#include "app/pickers.h"

#include "config/configFile.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

std::string titleOf(const std::string& path, std::size_t titlePosition) {
    try {
        const auto file = readTextFile(path);
        return file->lines.empty() ? std::string() : std::string(fromCharacter(file->lines.front(), titlePosition));
    } catch (const RunTimeError&) {
        return {};
    }
}

PickerList listFolder(const std::string& folder, std::string_view extension, std::size_t titlePosition) {
    PickerList list;
    for (const auto& name : listFiles(folder)) {
        if (!endsWithIgnoringCase(name, extension)) continue;
        list.paths.push_back(joinPath(folder, name));
        list.titles.push_back(titleOf(list.paths.back(), titlePosition));
    }
    return list;
}

}  // namespace

PickerList listProfiles() {
    return listFolder(settings.profileDirectory, ".bqp", 21);
}

PickerList listLibraries() {
    return listFolder(settings.libraryPath, ".bqs", 22);
}

}  // namespace brasquelin
