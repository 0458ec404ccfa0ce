// Lines that no section of a file takes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/textFiles.h"
#include "text/fileFormat.h"

namespace brasquelin {

struct StrayLine {
    int line = 0;
    std::string_view code;
    std::string text;
};

/// Tags that are none of the sections, and text in front of, between and behind them (the first line of each stretch).
/// Lines that begin with "#" are comments; the first `headerLines` are passed over.
std::vector<StrayLine> strayLines(const TextFile& file, const std::vector<Section>& sections, LetterCase letterCase,
                                  std::size_t headerLines);

}  // namespace brasquelin
