#include "vars/rememberedValues.h"

#include <vector>

#include "platform/desktop.h"
#include "platform/directoryLock.h"
#include "platform/files.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t keptEntries = 51;

std::string memoryPath() {
    return joinPath(programDirectory(), "pop.tmp");
}

std::vector<std::string> rememberedLines() {
    const std::string path = memoryPath();
    return fileExists(path) ? readTextFile(path)->lines : std::vector<std::string>();
}

/// Each entry is one line, whose first "=" ends the key.
bool canBeRemembered(std::string_view key, std::string_view value) {
    return key.find_first_of("=\r\n") == std::string_view::npos &&
           value.find_first_of("\r\n") == std::string_view::npos;
}

}  // namespace

std::optional<std::string> recallValue(std::string_view key) {
    for (const auto& line : rememberedLines()) {
        const Assignment entry = splitAssignment(line);
        if (entry.hasEquals && entry.name == key) return std::string(entry.value);
    }
    return std::nullopt;
}

void rememberValue(std::string_view key, std::string_view value) {
    if (onlooker() && !onlooker()->mayWrite()) return;
    if (!canBeRemembered(key, value)) {
        const std::string text = "The answer for '" + onOneLine(key) + "' is used, but not remembered: ";
        return desktop().showMessage(text + "a key holds no \"=\", and neither of them a line break.", "Brasquelin",
                                     Icon::exclamation);
    }
    const DirectoryLock lock;
    std::vector<std::string> lines = rememberedLines();
    lines.insert(lines.begin(), std::string(key) + "=" + std::string(value));
    if (lines.size() > keptEntries) lines.resize(keptEntries);
    saveLines(memoryPath(), lines, encodingOfFile(memoryPath()));
}

}  // namespace brasquelin
