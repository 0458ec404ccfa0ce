#include "batch/runPreferences.h"

#include <string_view>

#include "platform/files.h"
#include "platform/textFiles.h"
#include "text/runTimeError.h"

namespace brasquelin {

namespace {

constexpr std::string_view key = "CloseWhenWell=";

std::vector<std::string> linesOf(const std::string& file) {
    try {
        return fileExists(file) ? readTextFile(file)->lines : std::vector<std::string>();
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace

bool closesWhenWell(const std::string& file) {
    bool closes = false;
    for (const auto& line : linesOf(file)) {
        if (line.starts_with(key)) closes = line.substr(key.size()) == "1";
    }
    return closes;
}

void setClosesWhenWell(const std::string& file, bool closes) {
    std::vector<std::string> lines = linesOf(file);
    std::erase_if(lines, [](const std::string& line) { return line.starts_with(key); });
    lines.push_back(std::string(key) + (closes ? "1" : "0"));
    writeLines(file, lines);
}

}  // namespace brasquelin
