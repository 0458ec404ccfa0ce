#include "check/sections.h"

#include <algorithm>

#include "check/references.h"

namespace brasquelin {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

class StrayLineFinder {
  public:
    StrayLineFinder(const std::vector<Section>& sections, LetterCase letterCase) {
        for (const Section section : sections) {
            states_.emplace_back(section, letterCase);
            tags_.emplace_back(openingTag(section));
            tags_.emplace_back(closingTag(section));
        }
    }

    void take(std::string_view line, int number) {
        const bool isTag = std::count_if(states_.begin(), states_.end(),
                                         [line](SectionState& state) { return state.noteTag(line); }) > 0;
        const std::string_view text = trimmed(line);
        if (isTag) told_ = false;
        if (isTag || text.empty() || text.front() == '#') return;
        if (text.front() == '[') return tellTag(text, number);
        const bool inside =
            std::any_of(states_.begin(), states_.end(), [](const SectionState& state) { return state.isOpen(); });
        if (!inside && !told_) tellOutside(number);
    }

    std::vector<StrayLine> found;

  private:
    void tellTag(std::string_view text, int number) {
        const std::string told = "'" + std::string(text) + "' is no tag of a section here";
        found.push_back({number, "unknown-section", told + suggestion(nearestName(text, tags_))});
    }
    void tellOutside(int number) {
        found.push_back({number, "outside-sections", "the text stands outside of all sections and is ignored"});
        told_ = true;
    }

    std::vector<SectionState> states_;
    std::vector<std::string> tags_;
    bool told_ = false;
};

}  // namespace

std::vector<StrayLine> strayLines(const TextFile& file, const std::vector<Section>& sections, LetterCase letterCase) {
    StrayLineFinder finder(sections, letterCase);
    int number = 0;
    for (const auto& line : file.lines) finder.take(line, ++number);
    return std::move(finder.found);
}

}  // namespace brasquelin
