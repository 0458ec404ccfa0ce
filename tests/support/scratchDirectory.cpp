#include "support/scratchDirectory.h"

#include <fstream>
#include <iterator>
#include <random>

#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/text.h"

namespace brasquelin {

ScratchDirectory::ScratchDirectory() {
    std::random_device random;
    const auto base = std::filesystem::canonical(std::filesystem::temp_directory_path());
    do {
        path_ = base / fromUtf8("Brés scratch " + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ScratchDirectory::operator/(std::string_view name) const {
    return joinPath(utf8(path_), name);
}

std::string ScratchDirectory::write(std::string_view name, std::string_view bytes) const {
    const auto file = path_ / fromUtf8(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    forgetTextFiles();
    return *this / name;
}

std::string ScratchDirectory::writeLines(std::string_view name, std::string_view lines) const {
    std::string bytes;
    for (const auto& line : splitLines(lines)) bytes += line + "\r\n";
    return write(name, bytes);
}

std::string ScratchDirectory::read(std::string_view name) const {
    return bytesOf(path_ / fromUtf8(name));
}

std::string utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::filesystem::path fromUtf8(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace brasquelin
