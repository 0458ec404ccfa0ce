#include "editor/lineGroups.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

#include "text/fileFormat.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

using Lines = std::vector<std::string>;

LineNumbers numbersFrom(std::size_t first, std::size_t count) {
    LineNumbers numbers(count);
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

bool isTag(std::string_view line) {
    constexpr std::array sections{Section::library, Section::var, Section::profile};
    return std::any_of(sections.begin(), sections.end(), [line](Section section) {
        return equalIgnoringCase(line, openingTag(section)) || equalIgnoringCase(line, closingTag(section));
    });
}

/// Takes the lines with these numbers out.
Lines extractLines(Lines& lines, const LineNumbers& numbers) {
    Lines taken;
    Lines rest;
    auto next = numbers.begin();
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const bool goes = next != numbers.end() && *next == i;
        if (goes) ++next;
        (goes ? taken : rest).push_back(std::move(lines[i]));
    }
    lines = std::move(rest);
    return taken;
}

/// Where each group starts, and the end of the last one.
std::vector<std::size_t> groupStarts(const Lines& lines, EditorList which) {
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (beginsGroup(lines, which, i)) starts.push_back(i);
    }
    starts.push_back(lines.size());
    return starts;
}

void checkLimits(const std::vector<std::size_t>& starts) {
    constexpr std::size_t limit = 256;  // groups of a list, lines of a group
    bool tooLarge = starts.size() - 1 > limit;
    for (std::size_t i = 1; i < starts.size(); ++i) tooLarge = tooLarge || starts[i] - starts[i - 1] > limit;
    if (tooLarge) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
}

auto at(Lines& lines, std::size_t position) {
    return lines.begin() + static_cast<std::ptrdiff_t>(position);
}

/// Exchanges the group at `begin` with the one behind it; `line` is where the selected line stood.
std::size_t exchangeGroups(Lines& lines, EditorList which, std::size_t begin, std::size_t line) {
    const std::size_t middle = placeBetween(lines, which, begin + 1);
    const std::size_t end = placeBetween(lines, which, middle + 1);
    std::rotate(at(lines, begin), at(lines, middle), at(lines, end));
    return line < middle ? line + (end - middle) : line - (middle - begin);
}

std::optional<std::size_t> moveGroup(Lines& lines, EditorList which, std::optional<std::size_t> selected, bool up) {
    if (which == EditorList::commands) checkLimits(groupStarts(lines, which));
    if (!selected && which != EditorList::commands) return selected;
    const std::size_t line = selected.value_or(0);
    if (!(up ? hasGroupAbove(lines, which, line) : hasGroupBelow(lines, which, line))) return selected;
    const std::size_t own = groupStart(lines, which, line);
    return exchangeGroups(lines, which, up ? groupStart(lines, which, own - 1) : own, line);
}

}  // namespace

bool beginsGroup(const Lines& lines, EditorList which, std::size_t line) {
    return line == 0 || which == EditorList::include || !isAttribute(lines[line]);
}

std::size_t groupStart(const Lines& lines, EditorList which, std::size_t line) {
    while (line < lines.size() && !beginsGroup(lines, which, line)) --line;
    return line;
}

LineNumbers wholeGroups(const Lines& lines, EditorList which, const LineNumbers& some) {
    LineNumbers whole;
    for (const std::size_t line : some) {
        if (line >= lines.size() || (!whole.empty() && line <= whole.back())) continue;
        const std::size_t end = placeBetween(lines, which, line + 1);
        for (std::size_t i = groupStart(lines, which, line); i < end; ++i) whole.push_back(i);
    }
    return whole;
}

std::size_t placeBetween(const Lines& lines, EditorList which, std::size_t place) {
    while (place < lines.size() && !beginsGroup(lines, which, place)) ++place;
    return std::min(place, lines.size());
}

std::size_t placeBehind(const Lines& lines, EditorList which, const LineNumbers& some) {
    return some.empty() ? lines.size() : placeBetween(lines, which, some.back() + 1);
}

bool hasGroupAbove(const Lines& lines, EditorList which, std::size_t line) {
    return line < lines.size() && groupStart(lines, which, line) > 0;
}

bool hasGroupBelow(const Lines& lines, EditorList which, std::size_t line) {
    return placeBetween(lines, which, line + 1) < lines.size();
}

std::string textOf(const Lines& lines, const LineNumbers& numbers) {
    std::string text;
    for (const std::size_t& number : numbers) {
        if (&number != &numbers.front()) text += '\n';
        text += lines[number];
    }
    return text;
}

Lines linesOfText(std::string_view text) {
    Lines lines = splitLines(text);
    std::erase_if(lines, [](const std::string& line) { return line.empty() || isTag(line); });
    return lines;
}

void eraseLines(Lines& lines, const LineNumbers& numbers) {
    extractLines(lines, numbers);
}

bool eraseGroups(Lines& lines, EditorList which, const LineNumbers& selected) {
    LineNumbers heads = selected;
    std::erase_if(heads, [&](std::size_t line) {
        return line >= lines.size() || (which != EditorList::include && isAttribute(lines[line]));
    });
    eraseLines(lines, wholeGroups(lines, which, heads));
    return !heads.empty();
}

LineNumbers insertLines(Lines& lines, std::size_t place, const Lines& added) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), added.begin(), added.end());
    return numbersFrom(place, added.size());
}

LineNumbers moveLines(Lines& lines, const LineNumbers& numbers, std::size_t place) {
    const auto before = std::lower_bound(numbers.begin(), numbers.end(), place) - numbers.begin();
    const Lines moved = extractLines(lines, numbers);
    return insertLines(lines, place - static_cast<std::size_t>(before), moved);
}

std::optional<std::size_t> moveGroupUp(Lines& lines, EditorList which, std::optional<std::size_t> selected) {
    return moveGroup(lines, which, selected, true);
}

std::optional<std::size_t> moveGroupDown(Lines& lines, EditorList which, std::optional<std::size_t> selected) {
    return moveGroup(lines, which, selected, false);
}

}  // namespace brasquelin
