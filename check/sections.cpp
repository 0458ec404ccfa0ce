#include "check/sections.h"

#include <algorithm>

#include "check/references.h"

namespace brasquelin {

namespace {

constexpr std::string_view blanks = " \t";

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
        const auto begin = line.find_first_not_of(blanks);
        const bool isTag = noteTag(line);
        if (isTag) told_ = false;
        if (isTag || begin == std::string_view::npos || line[begin] == '#') return;
        if (line[begin] == '[') return tellTag(line.substr(begin, line.find_last_not_of(blanks) - begin + 1), number);
        const bool inside =
            std::any_of(states_.begin(), states_.end(), [](const SectionState& state) { return state.isOpen(); });
        if (!inside && !told_) tellOutside(number);
    }

    std::vector<StrayLine> found;

  private:
    /// A tag concerns each section.
    bool noteTag(std::string_view line) {
        return line.starts_with('[') && std::count_if(states_.begin(), states_.end(),
                                                      [line](SectionState& state) { return state.noteTag(line); }) > 0;
    }
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

std::vector<StrayLine> strayLines(const TextFile& file, const std::vector<Section>& sections, LetterCase letterCase,
                                  std::size_t headerLines) {
    StrayLineFinder finder(sections, letterCase);
    for (std::size_t i = headerLines; i < file.lines.size(); ++i) finder.take(file.lines[i], static_cast<int>(i) + 1);
    return std::move(finder.found);
}

}  // namespace brasquelin
