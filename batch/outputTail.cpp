#include "batch/outputTail.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/files.h"
#include "text/runTimeError.h"

namespace brasquelin {

bool OutputTail::show(const std::string& path, std::uint64_t begin, std::uint64_t end) {
    const bool samePlace = path == path_ && begin == begin_;
    const bool same = samePlace && (end == end_ || (end_ == growing && end >= position_));
    if (!same) {
        text_ = OutputText(mostBytes_);
        position_ = begin;
        midLine_ = false;
        changed_ = true;
    }
    path_ = path;
    begin_ = begin;
    end_ = end;
    return !same;
}

bool OutputTail::update() {
    const bool changed = std::exchange(changed_, false);
    const auto stamp = path_.empty() ? std::nullopt : fileStamp(path_);
    const std::uint64_t end = std::min(end_, stamp ? stamp->size : 0);
    if (end <= position_) return changed;
    if (end - position_ > mostBytes_) jumpTo(end - mostBytes_);
    std::string bytes;
    try {
        bytes = readFilePart(path_, position_, static_cast<std::size_t>(end - position_));
    } catch (const RunTimeError&) {
        return changed;
    }
    position_ += bytes.size();
    std::string_view fresh = bytes;
    if (midLine_) {
        const auto lineEnd = fresh.find('\n');
        if (lineEnd != std::string_view::npos) fresh.remove_prefix(lineEnd + 1);
        midLine_ = false;
    }
    text_.append(fresh);
    return true;
}

void OutputTail::jumpTo(std::uint64_t position) {
    text_.skip();
    position_ = position;
    midLine_ = true;
}

}  // namespace brasquelin
