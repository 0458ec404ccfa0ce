#include "tests/os-windows/scratchDirectory.h"

#include <windows.h>

#include <fstream>
#include <iterator>

namespace brasquelin {

ScratchDirectory::ScratchDirectory() {
    static int counter = 0;
    const std::wstring name =
        L"Br\u00E9s scratch " + std::to_wstring(GetCurrentProcessId()) + L" " + std::to_wstring(++counter);
    path_ = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(path_);
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ScratchDirectory::operator/(std::string_view name) const {
    return utf8(path_) + "\\" + std::string(name);
}

std::string ScratchDirectory::write(std::string_view name, std::string_view bytes) const {
    std::ofstream(path_ / fromUtf8(name), std::ios::binary) << bytes;
    return *this / name;
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
