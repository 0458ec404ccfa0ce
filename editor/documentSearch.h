// Looking for a text in all lists of the document.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editor/profileDocument.h"

namespace brasquelin {

enum class SearchWay { here, forward, back };

/// What a search has come to.
struct SearchResult {
    std::optional<DocumentPlace> place;  // nothing when no line holds the text
    std::string told;                    // "2 of 17"
};

/// The lists follow each other in the order of the window; behind the last line comes the first. `here` takes the line
/// at `from`, too, or the next one. The text in any letter case; an empty one is nowhere.
SearchResult search(const ProfileDocument& document, std::string_view text, DocumentPlace from, SearchWay way);

}  // namespace brasquelin
