#include "platform/keptFiles.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/files.h"
#include "platform/nameClaim.h"
#include "platform/paths.h"

namespace brasquelin {

namespace {

constexpr std::size_t mostKept = 20;
constexpr std::string_view keptEnd = ".kept";

std::string keptPath(std::string_view start, std::size_t number) {
    const std::string middle = number == 1 ? "" : "-" + std::to_string(number);
    return joinPath(programDirectory(), std::string(start).append(middle).append(keptEnd));
}

}  // namespace

std::string unusedKeptFile(std::string_view start) {
    std::size_t number = 1;
    while (fileExists(keptPath(start, number)) || !claimName(keptPath(start, number))) ++number;
    return keptPath(start, number);
}

std::vector<std::string> keptFilesBut(std::string_view start, std::string_view own) {
    std::vector<std::pair<std::int64_t, std::string>> found;
    for (const auto& name : listFiles(programDirectory())) {
        const std::string path = joinPath(programDirectory(), name);
        if (!name.starts_with(start) || !name.ends_with(keptEnd) || path == own || !claimName(path)) continue;
        if (const auto stamp = fileStamp(path)) found.emplace_back(-stamp->modified, path);
    }
    std::sort(found.begin(), found.end());
    std::vector<std::string> paths;
    paths.reserve(found.size());
    for (auto& [age, path] : found) paths.push_back(std::move(path));
    return paths;
}

void limitKeptFiles(std::string_view start) {
    const auto files = keptFilesBut(start, {});
    for (std::size_t i = mostKept; i < files.size(); ++i) deleteFile(files[i]);
}

}  // namespace brasquelin
