// Lines that no section of a file takes.
#pragma once

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
/// Lines that begin with "#" are comments.
std::vector<StrayLine> strayLines(const TextFile& file, const std::vector<Section>& sections, LetterCase letterCase);

}  // namespace brasquelin
