#include "check/references.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

bool mayBeName(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto isLetter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '-' || c == '.' ||
               (c & '\x80') != 0;
    };
    return std::any_of(text.begin(), text.end(), isLetter) &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || isLetter(c); });
}

/// What stands between the dollar sign at `opening` and the next one.
struct Pair {
    std::size_t closing = std::string_view::npos;
    std::string_view name;
};

Pair pairAt(std::string_view text, std::size_t opening) {
    if (opening == std::string_view::npos) return {};
    const auto closing = text.find('$', opening + 1);
    if (closing == std::string_view::npos) return {};
    return {closing, text.substr(opening + 1, closing - opening - 1)};
}

/// The letters that have to be changed, added or dropped.
std::size_t distance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0U);
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t changed = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::vector<Reference> leftReferences(std::string_view text) {
    return leftReferences(text, [](const std::string& reference) { return reference; });
}

std::vector<Reference> leftReferences(std::string_view text,
                                      const std::function<std::string(const std::string&)>& expand) {
    const auto isKnown = [&expand](std::string_view name) {
        const std::string reference = "$" + std::string(name) + "$";
        return !name.empty() && expand(reference) != reference;
    };
    std::vector<Reference> found;
    auto opening = text.find('$');
    for (Pair pair = pairAt(text, opening); pair.closing != std::string_view::npos; pair = pairAt(text, opening)) {
        const bool known = isKnown(pair.name);
        // The second dollar sign may belong to a reference behind it.
        const bool isName = !known && mayBeName(pair.name) && !isKnown(pairAt(text, pair.closing).name);
        if (isName) found.push_back({opening, pair.name});
        opening = known || isName ? text.find('$', pair.closing + 1) : pair.closing;
    }
    return found;
}

std::string nearestName(std::string_view name, const std::vector<std::string>& names) {
    const std::string wanted = lowerCase(name);
    std::size_t least = wanted.size() > 4 ? 3 : 2;  // one more than a slip may change
    std::string nearest;
    for (const auto& each : names) {
        const std::size_t changes = distance(wanted, lowerCase(each));
        if (changes >= least || changes >= each.size()) continue;
        least = changes;
        nearest = each;
    }
    return nearest;
}

std::string suggestion(std::string_view nearest) {
    return nearest.empty() ? std::string() : "; did you mean '" + std::string(nearest) + "'?";
}

}  // namespace brasquelin
