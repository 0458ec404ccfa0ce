#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/systemWriting.h"
#include "platform/textFiles.h"

namespace brasquelin {

namespace {

int replaceFile(const WriteTarget& target, const GiveBytes& give, Durability durability) {
    const auto file = openTemporary(target.path.parent_path(), target.path.filename());
    file->becomeLike(target.path);
    give([&](std::string_view piece) { file->fill(piece, durability); });
    file->moveOver(target.path, durability);
    return file->error();
}

/// Where files of many directories meet, each has a name of its own.
std::filesystem::path nameElsewhere(const std::filesystem::path& target) {
    const auto whole = std::filesystem::absolute(target).native();
    return target.filename().concat("." + std::to_string(std::hash<std::filesystem::path::string_type>()(whole)));
}

/// Beside the target or, where nothing can be created, in the user's directory of temporary files.
std::unique_ptr<TemporaryFile> copyFor(const std::filesystem::path& target, std::string_view bytes) {
    auto copy = openTemporary(target.parent_path(), target.filename());
    copy->fill(bytes, Durability::onDisk);
    if (copy->error() == 0) return copy;
    copy.reset();
    std::error_code none;
    copy = openTemporary(std::filesystem::temp_directory_path(none), nameElsewhere(target));
    copy->fill(bytes, Durability::onDisk);
    return copy;
}

int writeInPlace(std::string_view path, const WriteTarget& target, const GiveBytes& give, Durability durability) {
    const std::string old = readFileBytes(path);
    std::string bytes;
    give([&](std::string_view piece) { bytes.append(piece); });
    const auto copy = copyFor(target.path, old);
    if (copy->error() != 0) return copy->error();
    copy->setKept(true);
    const int error = overwriteFile(target.path, bytes, durability);
    if (error != 0 && readFileBytes(path) != old && overwriteFile(target.path, old, durability) != 0) {
        const std::u8string kept = copy->path().u8string();
        throw errorOfWriting(error, path)
            .because("What stood there is kept in '" + std::string(kept.begin(), kept.end()) + "'.");
    }
    copy->setKept(false);
    return error;
}

int writeTo(std::string_view path, const WriteTarget& target, const GiveBytes& give, Durability durability) {
    if (target.error != 0) return target.error;
    if (target.hasOtherNames) return writeInPlace(path, target, give, durability);
    const int error = replaceFile(target, give, durability);
    const bool refused = target.exists && isRefusalToReplace(error);
    return refused ? writeInPlace(path, target, give, durability) : error;
}

void write(std::string_view path, const GiveBytes& give, Durability durability) {
    forgetTextFiles();
    const int error = writeTo(path, writeTargetOf(path), give, durability);
    if (error != 0) throw errorOfWriting(error, path);
}

}  // namespace

void writeInPieces(std::string_view path, const GiveBytes& give) {
    write(path, give, Durability::usual);
}

void writeFile(std::string_view path, std::string_view bytes) {
    writeInPieces(path, [bytes](const TakeBytes& take) { take(bytes); });
}

void saveFile(std::string_view path, std::string_view bytes) {
    write(
        path, [bytes](const TakeBytes& take) { take(bytes); }, Durability::onDisk);
}

}  // namespace brasquelin
