#include "platform/textFiles.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

#include "platform/files.h"
#include "platform/paths.h"
#include "text/runTimeError.h"
#include "text/text.h"
#include "text/textHash.h"

namespace brasquelin {

namespace {

const UnsavedText* unsaved = nullptr;

using Clock = std::chrono::steady_clock;

struct Kept {
    FileStamp stamp;
    std::shared_ptr<const TextFile> file;
    Clock::time_point checked;
};

/// A file whose stamp was looked at a moment ago is taken as unchanged: a loop reads the same library a million times.
constexpr auto moment = std::chrono::milliseconds(10);

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

void keep(std::string_view path, const FileStamp& stamp, const std::shared_ptr<const TextFile>& file) {
    if (cache.files.size() >= mostFiles || cache.bytes + stamp.size > mostBytes) cache.clear();
    cache.bytes += stamp.size;
    cache.files[std::string(path)] = {stamp, file, Clock::now()};
}

TextFile linesOf(const std::string& text, std::string_view path, Encoding encoding) {
    TextFile file{splitLines(text), encoding};
    if (text.find('\0') == std::string::npos) return file;
    const auto line = std::find_if(file.lines.begin(), file.lines.end(),
                                   [](const std::string& each) { return each.find('\0') != std::string::npos; });
    raiseNul(path, static_cast<int>(line - file.lines.begin()) + 1);
}

std::string joinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text.append(line).append("\r\n");
    return text;
}

}  // namespace

std::string lineOfFile(std::string_view path, int line) {
    try {
        const auto file = readTextFile(path);
        const auto index = static_cast<std::size_t>(line) - 1;
        return index < file->lines.size() ? file->lines[index] : std::string();
    } catch (const RunTimeError&) {
        return {};
    }
}

UnsavedText::UnsavedText(std::string path, std::vector<std::string> lines)
    : path_(std::move(path)), file_(std::make_shared<const TextFile>(TextFile{std::move(lines), newFileEncoding})) {
    unsaved = this;
}

UnsavedText::~UnsavedText() {
    unsaved = nullptr;
}

std::shared_ptr<const TextFile> unsavedText(std::string_view path) {
    return unsaved != nullptr && unsaved->path_ == path ? unsaved->file_ : nullptr;
}

bool textFileExists(std::string_view path) {
    if (unsavedText(path) != nullptr) return true;
    const auto known = cache.files.find(path);
    const bool isFresh = known != cache.files.end() && Clock::now() - known->second.checked < moment;
    return isFresh || fileExists(path);
}

std::shared_ptr<const TextFile> readTextFile(std::string_view path) {
    if (unsaved != nullptr) {
        if (auto text = unsavedText(path)) return text;
    }
    const auto known = cache.files.find(path);
    const bool isKnown = known != cache.files.end();
    const auto now = isKnown ? Clock::now() : Clock::time_point();
    if (isKnown && now - known->second.checked < moment) return known->second.file;
    const auto stamp = fileStamp(path);
    if (isKnown && stamp && known->second.stamp == *stamp) {
        known->second.checked = now;
        return known->second.file;
    }
    const std::string bytes = readFileBytes(path, mostTextBytes);
    auto file = std::make_shared<const TextFile>(linesOf(decodeFile(bytes), path, encodingOf(bytes)));
    if (stamp && isAbsolutePath(path)) keep(path, *stamp, file);
    return file;
}

std::string readFirstLine(std::string_view path) {
    constexpr std::size_t most = 1U << 16U;
    std::string bytes = readFilePart(path, 0, most);
    const bool wide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    const auto end = wide ? std::string::npos : bytes.find('\n');
    if (end != std::string::npos) bytes.resize(end + 1);
    const auto lines = splitLines(decodeFile(bytes));
    if (lines.empty()) return {};
    if (lines.front().find('\0') != std::string::npos) raiseNul(path, 1);
    return lines.front();
}

void raiseNul(std::string_view path, int line) {
    throw RunTimeError(ErrorNumber::pathFileAccess, std::string(path), line)
        .because("The line holds a NUL character: this is no text.");
}

void forgetTextFiles() {
    cache.clear();
    forgetDirectory();
}

void writeLines(std::string_view path, const std::vector<std::string>& lines) {
    writeFile(path, encodeFile(joinLines(lines)));
}

Encoding encodingOfFile(std::string_view path) {
    try {
        return fileStamp(path) ? encodingOf(readFileBytes(path, mostTextBytes)) : newFileEncoding;
    } catch (const RunTimeError&) {
        return newFileEncoding;  // what cannot be read may be written all the same
    }
}

void saveLines(std::string_view path, const std::vector<std::string>& lines, Encoding encoding) {
    saveFile(path, encodeFile(joinLines(lines), encoding));
}

}  // namespace brasquelin
