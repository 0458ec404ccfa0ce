#include "vars/typeSpec.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "text/fileFormat.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::size_t choicePrefix = 5;  // "list(" and "comb("
constexpr std::size_t dialogPrefix = 9;  // "pathopen(" and its like

/// A kind is told by as many letters, in any letter case.
constexpr std::size_t kindLetters = 4;

constexpr std::uint32_t kindWord(std::string_view typeSpec) {
    std::uint32_t word = 0;
    for (const char each : typeSpec.substr(0, kindLetters)) {
        const bool isUpper = each >= 'A' && each <= 'Z';
        word = (word << 8U) | static_cast<unsigned char>(isUpper ? each + ('a' - 'A') : each);
    }
    return word;
}

bool startsDialog(std::string_view typeSpec) {
    constexpr std::array<std::string_view, 4> prefixes{"pathsave(", "pathopen(", "dblsopen(", "dblssave("};
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [typeSpec](std::string_view prefix) { return startsWithIgnoringCase(typeSpec, prefix); });
}

std::string_view innerText(std::string_view typeSpec, std::size_t prefixLength) {
    return withoutLast(fromCharacter(typeSpec, prefixLength + 1));
}

bool isValidCombItem(std::string_view item) {
    return item.ends_with(']') && item.find('[') != std::string_view::npos;
}

bool isValidComb(std::string_view typeSpec) {
    if (!typeSpec.ends_with(')')) return false;
    const auto inner = choiceText(typeSpec);
    if (inner.empty()) return true;
    const auto items = split(inner, itemSeparator);
    return std::all_of(items.begin(), items.end(), isValidCombItem);
}

/// The item that "list(n)" asks for.
std::string chosenByNumber(VariableKind kind, const std::vector<std::string_view>& items, std::string_view value) {
    const int number = toInteger16(innerText(value, choicePrefix));
    if (number < 0 || static_cast<std::size_t>(number) > items.size()) return "Error";
    if (number == 0) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    return std::string(itemValue(kind, items[static_cast<std::size_t>(number) - 1]));
}

}  // namespace

VariableKind kindOf(std::string_view typeSpec) {
    if (typeSpec.size() < kindLetters) return VariableKind::unknown;
    switch (kindWord(typeSpec)) {
        case kindWord("text"):
            return VariableKind::text;
        case kindWord("list"):
            return VariableKind::list;
        case kindWord("comb"):
            return VariableKind::comb;
        case kindWord("path"):
            return VariableKind::path;
        case kindWord("dbls"):
            return VariableKind::dbls;
        default:
            return VariableKind::unknown;
    }
}

std::string_view typeWord(std::string_view typeSpec) {
    return typeSpec.substr(0, typeSpec.find('('));
}

bool isChoice(VariableKind kind) {
    return kind == VariableKind::list || kind == VariableKind::comb;
}

bool isValidTypeSpec(std::string_view typeSpec) {
    if (startsWithIgnoringCase(typeSpec, "list(")) return typeSpec.ends_with(')');
    if (startsWithIgnoringCase(typeSpec, "comb(")) return isValidComb(typeSpec);
    if (equalIgnoringCase(typeSpec, "text")) return true;
    if (!startsDialog(typeSpec)) return false;
    return typeSpec.ends_with(')') && dialogFilterOf(typeSpec).find('|') != std::string_view::npos;
}

std::string ParseError::report() const {
    return "Parse error in file :\r\n'" + path + "' line " + std::to_string(line);
}

void checkTypeSpec(std::string_view typeSpec, std::string_view path, int line) {
    if (!isValidTypeSpec(typeSpec)) throw ParseError{std::string(path), line};
}

std::string_view choiceText(std::string_view typeSpec) {
    return innerText(typeSpec, choicePrefix);
}

std::vector<std::string_view> choiceItems(std::string_view typeSpec) {
    return split(choiceText(typeSpec), itemSeparator);
}

std::string_view combLabel(std::string_view item) {
    return item.substr(0, item.find('['));
}

std::string_view combValue(std::string_view item) {
    const auto bracket = item.find('[');
    return bracket == std::string_view::npos ? std::string_view() : withoutLast(item.substr(bracket + 1));
}

std::string_view itemValue(VariableKind kind, std::string_view item) {
    return kind == VariableKind::comb ? combValue(item) : item;
}

std::string numberedItem(std::string_view typeSpec, std::string_view number) {
    const int position = toInteger16(number);
    if (position == 0) return {};
    const auto items = choiceItems(typeSpec);
    if (position < 0 || static_cast<std::size_t>(position) > items.size()) {
        throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    }
    return std::string(itemValue(kindOf(typeSpec), items[static_cast<std::size_t>(position) - 1]));
}

void fillListChoices(std::string_view inner, std::vector<std::string>& choices) {
    choices.emplace_back();
    for (const auto item : split(inner, itemSeparator)) choices.emplace_back(item);
}

void fillCombChoices(std::string_view inner, std::vector<std::string>& labels, std::vector<std::string>& values) {
    labels.emplace_back();
    values.emplace_back();
    for (const auto item : split(inner, itemSeparator)) {
        labels.emplace_back(combLabel(item));
        values.emplace_back(combValue(item));
    }
}

std::string_view dialogFilterOf(std::string_view typeSpec) {
    return innerText(typeSpec, dialogPrefix);
}

bool dialogSaves(std::string_view typeSpec) {
    return equalIgnoringCase(firstCharacters(fromCharacter(typeSpec, choicePrefix), 4), "save");
}

ResolvedChoice resolveChoice(std::string_view typeSpec, std::string_view value) {
    const VariableKind kind = kindOf(typeSpec);
    const auto items = choiceItems(typeSpec);
    ResolvedChoice choice;
    choice.value = startsWithIgnoringCase(value, "list(") ? chosenByNumber(kind, items, value) : std::string(value);
    if (choice.value.empty()) {
        choice.hasForms = choice.clearsText = true;
        choice.index = "0";
        return choice;
    }
    const auto match = std::find_if(items.begin(), items.end(),
                                    [&](std::string_view item) { return itemValue(kind, item) == choice.value; });
    if (match == items.end()) return choice;
    choice.hasForms = true;
    choice.index = std::to_string(match - items.begin() + 1);
    choice.setsLabel = kind == VariableKind::comb;
    if (choice.setsLabel) choice.label = combLabel(*match);
    return choice;
}

}  // namespace brasquelin
