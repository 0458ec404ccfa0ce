#include "vars/commandLine.h"

#include <cstdio>

#include "platform/fileAddress.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "text/runTimeError.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr int lastPreset = 999;
constexpr std::string_view firstPresetKey = " 001=";

/// "001=", "002=" and so on.
std::string presetKey(int number) {
    char key[16];
    std::snprintf(key, sizeof key, "%03d=", number);
    return key;
}

/// The texts that end the program's own path in a line of a list, in lower case. A list of Windows is read everywhere.
const std::vector<std::string_view>& programMarkers() {
    static const std::vector<std::string_view> windows{"\\brasquelin.exe "};
    static const std::vector<std::string_view> linux{"\\brasquelin.exe ", "/brasquelin.exe ", "/brasquelin "};
    return pathSeparator == '/' ? linux : windows;
}

}  // namespace

std::vector<std::string> parsePresets(std::string_view argumentText) {
    std::vector<std::string> presets;
    if (argumentText.find(firstPresetKey) == std::string_view::npos) return presets;
    std::string_view rest = argumentText;
    for (int i = 1; i <= lastPreset; ++i) {
        const auto key = rest.find(presetKey(i));
        if (key == std::string_view::npos) break;
        rest.remove_prefix(key + presetKey(i).size());
        const auto next = i < lastPreset ? rest.find(presetKey(i + 1)) : std::string_view::npos;
        // The character in front of the next key is the blank that separates the values.
        presets.emplace_back(next == std::string_view::npos ? rest : withoutLast(rest.substr(0, next)));
    }
    return presets;
}

FileArgument parseFileArgument(std::string_view argumentText) {
    const std::string_view path = argumentText.substr(0, argumentText.find(firstPresetKey));
    return {anchoredPath(pathOfAddress(replaceVar("exepath", exeDirectory(), path))), parsePresets(argumentText)};
}

void enterDirectoryOf(const std::string& path) {
    const auto separator = path.find_last_of("\\/");
    if (separator == std::string::npos) return;
    try {
        changeDirectory(separator == 0 ? path.substr(0, 1) : path.substr(0, separator));
    } catch (const RunTimeError& error) {
        throw error.whollyAbout(path);
    }
}

bool isListMode(std::string_view commandLine) {
    return startsWithIgnoringCase(commandLine, "-f ");
}

std::string listFilePath(std::string_view commandLine) {
    return pathOfAddress(fromCharacter(commandLine, 4));
}

std::string_view argumentOfListLine(std::string_view line) {
    constexpr std::size_t unmarkedStart = 16;
    TextMatch leftmost;
    for (const auto& marker : programMarkers()) {
        const TextMatch match = findIgnoringCase(line, marker);
        if (match && match.begin < leftmost.begin) leftmost = match;
    }
    return leftmost ? line.substr(leftmost.end) : fromCharacter(line, unmarkedStart);
}

}  // namespace brasquelin
