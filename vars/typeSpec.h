// Type texts of variables: "Text", "List(a||b)", "Comb(label[value]||...)", "PathOpen(filter)" ...
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

enum class VariableKind { text, list, comb, path, dbls, unknown };

/// Told by the first four characters, in any letter case.
VariableKind kindOf(std::string_view typeSpec);

/// "List" of "List(a||b)".
std::string_view typeWord(std::string_view typeSpec);

/// True for list and comb.
bool isChoice(VariableKind kind);

bool isValidTypeSpec(std::string_view typeSpec);

/// A type text that is not valid: the file and the line that holds it.
struct ParseError {
    std::string path;
    int line = 0;
    /// "Parse error in file :" line break "'path' line n"
    std::string report() const;
};

/// Raises ParseError.
void checkTypeSpec(std::string_view typeSpec, std::string_view path, int line);

/// What stands between "list(" or "comb(" and the closing parenthesis.
std::string_view choiceText(std::string_view typeSpec);

/// The items of a list or comb, without the empty first entry.
std::vector<std::string_view> choiceItems(std::string_view typeSpec);

/// A comb item: the text before its first "[" and the part in the brackets.
std::string_view combLabel(std::string_view item);
std::string_view combValue(std::string_view item);

/// What an item puts into a line: the item of a list, the bracketed part of a comb.
std::string_view itemValue(VariableKind kind, std::string_view item);

/// What the item with this number (from 1) puts into a line; empty for item 0. Raises 13 for what is no number, 9 for
/// one out of range.
std::string numberedItem(std::string_view typeSpec, std::string_view number);

/// The empty entry and the items behind it.
void fillListChoices(std::string_view inner, std::vector<std::string>& choices);
void fillCombChoices(std::string_view inner, std::vector<std::string>& labels, std::vector<std::string>& values);

/// The file-dialog filter of a path or dbls variable.
std::string_view dialogFilterOf(std::string_view typeSpec);
/// True for PathSave and DblSSave.
bool dialogSaves(std::string_view typeSpec);

/// What the text of an assignment means to a list or comb variable.
struct ResolvedChoice {
    std::string value;        // what "$name$" becomes
    bool hasForms = false;    // index(...) and text(...) are replaced
    std::string index;        // what "index($name$)" becomes
    bool setsLabel = false;   // a comb item matched
    std::string label;        // its label, or empty for an empty value
    bool clearsText = false;  // an empty value: "text($name$)" becomes the empty text
};
/// "list(n)" is item n, "Error" when there is none, error 9 for item 0. Any other text stays.
ResolvedChoice resolveChoice(std::string_view typeSpec, std::string_view value);

}  // namespace brasquelin
