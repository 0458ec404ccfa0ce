#include "platform/textFiles.h"

#include <unordered_map>

#include "platform/codePages.h"
#include "platform/files.h"
#include "text/text.h"

namespace brasquelin {

namespace {

struct Kept {
    FileStamp stamp;
    std::shared_ptr<const TextFile> file;
};

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

/// The files in memory by their absolute paths. Relative ones depend on the current directory and are not kept.
struct Cache {
    std::unordered_map<std::string, Kept, TextHash, std::equal_to<>> files;
    std::uint64_t bytes = 0;

    void clear() {
        files.clear();
        bytes = 0;
    }
};
Cache cache;

constexpr std::size_t mostFiles = 1024;
constexpr std::uint64_t mostBytes = 64ULL << 20;

bool isAbsolute(std::string_view path) {
    return path.starts_with('/') || path.starts_with('\\') || (path.size() > 2 && path[1] == ':');
}

void keep(std::string_view path, const FileStamp& stamp, const std::shared_ptr<const TextFile>& file) {
    if (cache.files.size() >= mostFiles || cache.bytes + stamp.size > mostBytes) cache.clear();
    cache.bytes += stamp.size;
    cache.files[std::string(path)] = {stamp, file};
}

}  // namespace

std::shared_ptr<const TextFile> readTextFile(std::string_view path) {
    const auto stamp = fileStamp(path);
    const auto known = cache.files.find(path);
    if (known != cache.files.end() && stamp && known->second.stamp == *stamp) return known->second.file;
    auto file = std::make_shared<const TextFile>(TextFile{splitLines(decodeFile(readFileBytes(path)))});
    if (stamp && isAbsolute(path)) keep(path, *stamp, file);
    return file;
}

TextFile readOemTextFile(std::string_view path) {
    return {splitLines(decodeOem(readFileBytes(path)))};
}

void forgetTextFiles() {
    cache.clear();
}

std::string textFileBytes(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text.append(line).append("\r\n");
    return encodeFile(text);
}

}  // namespace brasquelin
