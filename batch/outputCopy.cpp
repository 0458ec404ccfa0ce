#include "batch/outputCopy.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/files.h"
#include "platform/systemFiles.h"
#include "text/runTimeError.h"

namespace brasquelin {

OutputCopy::OutputCopy(std::string from, std::string to)
    : from_(std::move(from)), to_(std::move(to)), unfinished_(to_ + ".part") {
    const auto source = fileStamp(from_);
    if (!source) throw RunTimeError(ErrorNumber::fileNotFound, from_);
    const auto old = fileStamp(to_);
    if (old && old->identity == source->identity) {
        throw RunTimeError(ErrorNumber::pathFileAccess, to_)
            .because("It is the file of the output itself.")
            .ofWriting();
    }
    size_ = source->size;
    file_.open(systemPath(unfinished_), std::ios::binary | std::ios::trunc);
    require(file_.is_open());
}

OutputCopy::~OutputCopy() {
    if (complete_) return;
    file_.close();
    deleteFile(unfinished_);
}

bool OutputCopy::step() {
    constexpr std::uint64_t most = 4U << 20U;
    const std::string bytes =
        readFilePart(from_, position_, static_cast<std::size_t>(std::min(most, size_ - position_)));
    file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    require(file_.good());
    position_ += bytes.size();
    if (position_ < size_ && !bytes.empty()) return false;
    file_.close();
    require(!file_.fail());
    std::error_code error;
    std::filesystem::rename(systemPath(unfinished_), systemPath(to_), error);
    require(!error);
    complete_ = true;
    return true;
}

double OutputCopy::fractionDone() const {
    return size_ == 0 ? 1 : static_cast<double>(position_) / static_cast<double>(size_);
}

void OutputCopy::require(bool good) const {
    if (good) return;
    throw RunTimeError(errno == ENOSPC ? ErrorNumber::diskFull : ErrorNumber::pathFileAccess, to_).ofWriting();
}

}  // namespace brasquelin
