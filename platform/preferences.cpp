#include "platform/preferences.h"

#include <vector>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

std::vector<std::string> linesOf(const std::string& file) {
    try {
        return fileExists(file) ? readTextFile(file)->lines : std::vector<std::string>();
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace

std::string preferencesFile() {
    return joinPath(programDirectory(), "brasquelin.window");
}

std::string preference(const std::string& file, std::string_view key) {
    std::string value;
    for (const auto& line : linesOf(file)) {
        const Assignment assignment = splitAssignment(line);
        if (assignment.hasEquals && assignment.name == key) value = assignment.value;
    }
    return value;
}

void setPreference(const std::string& file, std::string_view key, std::string_view value) {
    std::vector<std::string> lines = linesOf(file);
    std::erase_if(lines, [key](const std::string& line) { return splitAssignment(line).name == key; });
    lines.push_back(std::string(key) + "=" + std::string(value));
    writeLines(file, lines);
}

}  // namespace brasquelin
