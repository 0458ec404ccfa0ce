#include "editor/documentSearch.h"

#include <algorithm>
#include <vector>

#include "text/text.h"

namespace brasquelin {

namespace {

std::vector<DocumentPlace> placesOf(const ProfileDocument& document, std::string_view text) {
    std::vector<DocumentPlace> places;
    for (const auto which : {EditorList::include, EditorList::variables, EditorList::commands}) {
        const auto& lines = document.list(which);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (findIgnoringCase(lines[i], text)) places.push_back({which, i});
        }
    }
    return places;
}

}  // namespace

SearchResult search(const ProfileDocument& document, std::string_view text, DocumentPlace from, SearchWay way) {
    if (text.empty()) return {};
    const auto places = placesOf(document, text);
    if (places.empty()) return {std::nullopt, "not found"};
    const auto first = way == SearchWay::forward ? std::upper_bound(places.begin(), places.end(), from)
                                                 : std::lower_bound(places.begin(), places.end(), from);
    std::size_t index = static_cast<std::size_t>(first - places.begin());
    if (way == SearchWay::back) index += places.size() - 1;
    index %= places.size();
    return {places[index], std::to_string(index + 1) + " of " + std::to_string(places.size())};
}

}  // namespace brasquelin
