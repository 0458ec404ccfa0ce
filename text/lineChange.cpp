#include "text/lineChange.h"

#include <algorithm>
#include <iterator>

namespace brasquelin {

namespace {

using Lines = std::vector<std::string>;
using Offset = Lines::difference_type;

std::size_t bytesOf(const Lines& lines) {
    std::size_t bytes = lines.size() * sizeof(std::string);
    for (const auto& line : lines) bytes += line.capacity() > std::string().capacity() ? line.capacity() : 0;
    return bytes;
}

struct Common {
    Offset head = 0;
    Offset tail = 0;
};

Common commonOf(const Lines& before, const Lines& after) {
    Common common;
    const auto shorter = static_cast<Offset>(std::min(before.size(), after.size()));
    common.head = std::mismatch(before.begin(), before.begin() + shorter, after.begin()).first - before.begin();
    const auto mostTail = shorter - common.head;
    common.tail = std::mismatch(before.rbegin(), before.rbegin() + mostTail, after.rbegin()).first - before.rbegin();
    return common;
}

Lines without(const Lines& lines, const Common& common) {
    return {lines.begin() + common.head, lines.end() - common.tail};
}

/// In place as far as both are equally long, so that a long list is moved at most once.
void replaceIn(Lines& lines, std::size_t position, const Lines& old, const Lines& by) {
    const auto begin = lines.begin() + static_cast<Offset>(position);
    const auto both = static_cast<Offset>(std::min(old.size(), by.size()));
    const auto end = std::copy(by.begin(), by.begin() + both, begin);
    if (old.size() > by.size()) {
        lines.erase(end, begin + static_cast<Offset>(old.size()));
    } else {
        lines.insert(end, by.begin() + both, by.end());
    }
}

}  // namespace

std::size_t LineChange::bytes() const {
    return sizeof(LineChange) + bytesOf(removed) + bytesOf(inserted);
}

void LineChange::applyTo(std::vector<std::string>& lines) const {
    replaceIn(lines, position, removed, inserted);
}

void LineChange::takeBackFrom(std::vector<std::string>& lines) const {
    replaceIn(lines, position, inserted, removed);
}

LineChange changeBetween(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    const Common common = commonOf(before, after);
    return {static_cast<std::size_t>(common.head), without(before, common), without(after, common)};
}

void trim(LineChange& change) {
    LineChange trimmed = changeBetween(change.removed, change.inserted);
    trimmed.position += change.position;
    change = std::move(trimmed);
}

}  // namespace brasquelin
