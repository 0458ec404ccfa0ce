#include "vars/commandLine.h"

#include <array>

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

constexpr std::size_t keyDigits = 3;

/// Where the "=" of the key "001=", "002=" and so on stands first; npos when there is none.
std::size_t findKey(std::string_view text, int number) {
    const std::array<char, keyDigits> digits{static_cast<char>('0' + number / 100),
                                             static_cast<char>('0' + number / 10 % 10),
                                             static_cast<char>('0' + number % 10)};
    const std::string_view wanted(digits.data(), keyDigits);
    auto equals = text.find('=');
    while (equals != std::string_view::npos && !text.substr(0, equals).ends_with(wanted)) {
        equals = text.find('=', equals + 1);
    }
    return equals;
}

/// True when the text ends with what stands between the program's own path and the rest of a list line, but for the
/// blank behind it. A list of Windows is read everywhere.
bool endsWithProgram(std::string_view text) {
    constexpr std::string_view linuxName = "/brasquelin";
    constexpr std::array<std::string_view, 2> windowsNames{"\\brasquelin.exe", "/brasquelin.exe"};
    if (endsWithIgnoringCase(text, windowsNames[0])) return true;
    if (pathSeparator != '/') return false;
    return endsWithIgnoringCase(text, windowsNames[1]) || endsWithIgnoringCase(text, linuxName);
}

}  // namespace

std::vector<std::string> parsePresets(std::string_view argumentText) {
    constexpr std::size_t usual = 8;
    std::vector<std::string> presets;
    if (argumentText.find(firstPresetKey) == std::string_view::npos) return presets;
    presets.reserve(usual);
    std::string_view rest = argumentText;
    std::size_t equals = findKey(rest, 1);
    for (int next = 2; equals != std::string_view::npos; ++next) {
        rest.remove_prefix(equals + 1);
        equals = next <= lastPreset ? findKey(rest, next) : std::string_view::npos;
        // The character in front of the next key is the blank that separates the values.
        const bool isLast = equals == std::string_view::npos;
        presets.emplace_back(isLast ? rest : withoutLast(rest.substr(0, equals - keyDigits)));
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
    for (auto blank = line.find(' '); blank != std::string_view::npos; blank = line.find(' ', blank + 1)) {
        if (endsWithProgram(line.substr(0, blank))) return line.substr(blank + 1);
    }
    return fromCharacter(line, unmarkedStart);
}

}  // namespace brasquelin
