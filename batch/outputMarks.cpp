#include "batch/outputMarks.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace brasquelin {

namespace {

constexpr std::string_view lastWord = " last";

/// "NUMBER STATUS", perhaps with the last word behind.
std::optional<EndMark> parseMark(std::string_view text) {
    while (text.ends_with('\r') || text.ends_with(' ')) text.remove_suffix(1);
    EndMark mark;
    mark.last = text.ends_with(lastWord);
    if (mark.last) text.remove_suffix(lastWord.size());
    const char* const end = text.data() + text.size();
    const auto number = std::from_chars(text.data(), end, mark.number);
    if (number.ec != std::errc() || number.ptr == end || *number.ptr != ' ') return std::nullopt;
    const auto status = std::from_chars(number.ptr + 1, end, mark.status);
    if (status.ec != std::errc() || status.ptr != end) return std::nullopt;
    return mark;
}

/// Where the text may go on to be a mark, at its end; its length when it cannot.
std::size_t possibleBegin(std::string_view text, std::string_view mark) {
    const std::size_t longest = std::min(text.size(), mark.size() - 1);
    for (std::size_t begin = text.size() - longest; begin < text.size(); ++begin) {
        if (mark.starts_with(text.substr(begin))) return begin;
    }
    return text.size();
}

}  // namespace

void OutputMarks::take(std::string_view bytes, const std::function<void(std::string_view)>& output,
                       const std::function<void(const EndMark&)>& ended) {
    std::string joined;
    if (!held_.empty()) {
        joined = std::exchange(held_, {});
        joined.append(bytes);
        bytes = joined;
    }
    const auto tell = [&](std::string_view text) {
        if (!text.empty()) output(text);
    };
    while (true) {
        const auto begin = bytes.find(mark_);
        const auto end = begin == std::string_view::npos ? begin : bytes.find('\n', begin);
        if (end == std::string_view::npos) {
            const std::size_t kept = begin == std::string_view::npos ? possibleBegin(bytes, mark_) : begin;
            tell(bytes.substr(0, kept));
            held_ = bytes.substr(kept);
            return;
        }
        const auto mark = parseMark(bytes.substr(begin + mark_.size(), end - begin - mark_.size()));
        tell(bytes.substr(0, mark ? begin : end + 1));
        bytes.remove_prefix(end + 1);
        if (mark) ended(*mark);
    }
}

}  // namespace brasquelin
