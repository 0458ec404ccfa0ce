// What the check thinks of the things that it meets on the way: warnings and hints.
#include <algorithm>

#include "check/fileCheck.h"
#include "check/references.h"
#include "check/sections.h"
#include "config/configFile.h"
#include "engine/engineTables.h"
#include "platform/codePages.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"
#include "vars/typeSpec.h"

namespace brasquelin {

namespace {

/// Where the text begins that ends the line at this place.
int columnOf(const Expansion& expansion) {
    const std::size_t line = characterCount(lineAt(expansion.place()));
    const std::size_t text = characterCount(expansion.text);
    return static_cast<int>(line > text ? line - text : 0) + 1;
}

int columnAt(const Expansion& expansion, std::size_t byte) {
    return columnOf(expansion) + static_cast<int>(characterCount(expansion.text.substr(0, byte)));
}

std::vector<std::string> knownNames(const Expansion& expansion) {
    std::vector<std::string> names{"exepath", "scriptpath"};
    const auto& variables =
        expansion.ofFunction ? variableTables.functionVariables : variableTables.profileVariables[1];
    for (const auto& variable : variables) names.push_back(variable.name);
    for (const auto& variable : settings.globalVars) names.push_back(variable.name);
    if (expansion.ofFunction) return names;
    for (const auto& loop : engineTables.loops[1].records) names.push_back(loop.variable);
    return names;
}

/// A fault of the expansion itself is told where the run meets it.
std::string expanded(const Expansion& expansion, const std::string& reference) {
    try {
        return expansion.expand(reference);
    } catch (const RunTimeError&) {
    } catch (const EndProgram&) {
    }
    return {};
}

bool isPath(std::string_view variable) {
    const int index = findVar(variable, variableTables.functionVariables);
    if (index < 0) return false;
    const auto kind = kindOf(variableTables.functionVariables.row(static_cast<std::size_t>(index)).typeSpec);
    return kind == VariableKind::path || kind == VariableKind::dbls;
}

bool isInQuotes(std::string_view before) {
    char quote = '\0';
    for (const char c : before) {
        if (c == quote) {
            quote = '\0';
        } else if (quote == '\0' && (c == '"' || c == '\'')) {
            quote = c;
        }
    }
    return quote != '\0';
}

std::string numbersOf(const LoopNumbers& numbers) {
    return "from " + std::to_string(numbers.start) + " to " + std::to_string(numbers.end) + " in steps of " +
           std::to_string(numbers.step);
}

/// What the user fills in may make any loop right.
bool headerRefers(const SourceLine& loop) {
    constexpr int headerLines = 4;
    for (int n = 1; n <= headerLines; ++n) {
        if (lineAt({loop.path, loop.line + n}).find('$') != std::string::npos) return true;
    }
    return false;
}

}  // namespace

void FileCheck::warnAboutSections(CheckedKind kind, const std::string& path) {
    std::vector<Section> sections{Section::var, Section::command};
    if (kind == CheckedKind::functionList || kind == CheckedKind::list) return;
    if (kind == CheckedKind::profile) sections = {Section::library, Section::var, Section::profile};
    if (kind == CheckedKind::configuration) sections = {Section::config, Section::var};
    const LetterCase letterCase = kind == CheckedKind::configuration ? LetterCase::exact : LetterCase::any;
    const bool hasHeader = kind == CheckedKind::profile || kind == CheckedKind::library;
    for (auto& stray : strayLines(*readTextFile(path), sections, letterCase, hasHeader ? 1 : 0)) {
        add({path, stray.line}, stray.code, std::move(stray.text));
    }
}

/// Only the file in hand, at the level at which a user would open it.
bool FileCheck::isInHand(std::string_view path) const {
    return engineTables.fileStack.size() <= 1 && listLine_.path.empty() && path == inHand_;
}

void FileCheck::ignores(const SourceLine& place) {
    const std::string line = lineAt(place);
    const bool looksLikeTag = line.find_first_not_of(" \t") == line.find('[');
    if (isInHand(place.path) && !looksLikeTag) add(place, "ignored-line", "the line means nothing here and is ignored");
}

void FileCheck::expands(const Expansion& expansion) {
    ++expansions_;
    if (!isInHand(expansion.path)) return;
    const auto line = static_cast<std::size_t>(expansion.line);
    if (expandedLines_.size() <= line) expandedLines_.resize(2 * line + 1);
    if (expandedLines_[line]) return;
    expandedLines_[line] = true;
    if (expansion.ofFunction) declared_ = variableTables.functionVariables;
    const bool mayRefer = expansion.text.find('$') != std::string_view::npos;
    if (mayRefer) noteReferences(expansion.text);
    if (mayRefer) warnAboutReferences(expansion);
    warnAboutCodePage(expansion);
    if (mayRefer && expansion.ofFunction) hintAtPaths(expansion);
}

/// Each only once: a long file refers to few names.
void FileCheck::noteReferences(std::string_view text) {
    std::size_t dollars = 0;
    for (auto begin = text.find('$'); begin != std::string_view::npos; ++dollars) {
        const auto end = text.find('$', begin + 1);
        const auto name = text.substr(begin + 1, end - begin - 1);
        if (end != std::string_view::npos && !references_.contains(name)) references_.emplace(name);
        begin = end;
    }
    if (dollars > 2) oddTexts_.emplace_back(text);
}

void FileCheck::warnAboutReferences(const Expansion& expansion) {
    if (skippedProgram_) return;  // its answers may be meant
    const auto expand = [&expansion](const std::string& reference) { return expanded(expansion, reference); };
    for (const auto& left : leftReferences(expansion.text, expand)) {
        const std::string nearest = nearestName(left.name, knownNames(expansion));
        add(expansion.place(), "unknown-reference",
            "nothing declares '$" + std::string(left.name) + "$'" +
                suggestion(nearest.empty() ? nearest : "$" + nearest + "$"),
            columnAt(expansion, left.begin));
    }
}

void FileCheck::warnAboutCodePage(const Expansion& expansion) {
    if (isAscii(expansion.text)) return;  // every code page holds it
    if (decodeOem(encodeOem(expansion.text)) == expansion.text) return;
    for (std::size_t n = 0; n < characterCount(expansion.text); ++n) {
        const auto character = firstCharacters(fromCharacter(expansion.text, n + 1), 1);
        if (decodeOem(encodeOem(character)) == character) continue;
        return add(expansion.place(), "code-page", "the batch file cannot hold '" + std::string(character) + "'",
                   columnOf(expansion) + static_cast<int>(n));
    }
}

/// What a function writes is no command.
void FileCheck::hintAtPaths(const Expansion& expansion) {
    if (!startsWithIgnoringCase(lineAt(expansion.place()), "command=")) return;
    const auto asItIs = [](const std::string& reference) { return reference; };
    for (const auto& reference : leftReferences(expansion.text, asItIs)) {
        if (!isPath(reference.name) || isInQuotes(expansion.text.substr(0, reference.begin))) continue;
        const std::string name = "'$" + std::string(reference.name) + "$'";
        add(expansion.place(), "unquoted-path", "the path " + name + " stands outside quotes, so blanks split it",
            columnAt(expansion, reference.begin));
    }
}

void FileCheck::gives(std::string_view variable, const SourceLine& place, int callLine) {
    if (!isInHand(place.path)) return;
    if (callLine != givenInCall_) givenVariables_.clear();
    givenInCall_ = callLine;
    const auto [given, isFirst] = givenVariables_.emplace(lowerCase(variable), place.line);
    if (!isFirst && given->second != place.line) {
        add(place, "repeated-attribute", "'" + std::string(variable) + "' is given twice in this call");
    }
}

/// "Next" ends a loop when its counter is beyond the end, and not before.
void FileCheck::startsLoop(const LoopNumbers& numbers, const SourceLine& place) {
    if (!isInHand(place.path) || headerRefers(place)) return;
    if (numbers.step == 0 && numbers.start >= numbers.end) {
        return add(place, "endless-loop", "the loop never ends: it goes " + numbersOf(numbers));
    }
    const bool empty = numbers.step > 0 ? numbers.start > numbers.end : numbers.start < numbers.end;
    if (empty) add(place, "empty-loop", "the loop runs once only: it goes " + numbersOf(numbers));
}

void FileCheck::leavesOpen(const SourceLine& loop) {
    const bool isLoop = statementOf(lineAt(loop)) == Statement::loopStart;
    if (isInHand(loop.path) && isLoop) add(loop, "for-without-next", "no \"Next\" ends this loop; its body runs once");
}

void FileCheck::registers(int level, const SourceLine& place) {
    if (!isInHand(place.path)) return;
    const auto& callables = engineTables.callables[level];
    const std::string& name = callables.row(callables.count() - 1).name;
    const auto same = std::count_if(callables.begin(), callables.end(), [&name](const Callable& callable) {
        return equalIgnoringCase(callable.name, name);
    });
    if (same > 1 && !name.empty()) {
        add(place, "hidden-callable", "'" + name + "' cannot be called: an include above has the same name");
    }
}

bool FileCheck::isReferredTo(const std::string& name) const {
    if (name.find('$') != std::string::npos) {
        return std::any_of(oddTexts_.begin(), oddTexts_.end(),
                           [&name](const std::string& text) { return ReferenceText(text).refersTo(name); });
    }
    return references_.contains(name) ||
           std::any_of(references_.begin(), references_.end(),
                       [&name](const std::string& reference) { return equalIgnoringCase(reference, name); });
}

void FileCheck::warnAboutUnused() {
    for (const auto& variable : declared_) noteReferences(variable.defaultValue);
    for (const auto& variable : settings.globalVars) noteReferences(variable.value);
    for (const auto& variable : declared_) {
        const bool used = isReferredTo(variable.name);
        if (!used) add({inHand_, variable.line}, "unused-variable", "nothing uses '" + variable.name + "'");
    }
}

bool FileCheck::mayRunProgram(std::string_view path) {
    skippedProgram_ = true;
    const auto& stack = engineTables.fileStack;
    if (resolveProgram(path).empty()) return false;
    if (stack.size() == 1 && isInHand(stack.back().path) && variableTables.profileVariables[1].empty()) {
        add(stack.back(), "plugin-at-once",
            "'" + fileNameOf(path) + "' runs as soon as the file is opened: there is nothing to ask first");
    }
    return false;
}

}  // namespace brasquelin
