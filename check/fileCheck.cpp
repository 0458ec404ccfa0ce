#include "check/fileCheck.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <queue>
#include <set>
#include <utility>

#include "check/codes.h"
#include "check/references.h"
#include "config/configFile.h"
#include "engine/basicFunction.h"
#include "engine/engineTables.h"
#include "engine/runProfile.h"
#include "platform/console/consoleDesktop.h"
#include "platform/files.h"
#include "platform/listFile.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/substitution.h"
#include "text/text.h"
#include "vars/commandLine.h"
#include "vars/loadPrompt.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

/// Stands in the value of a row that only the user could fill: no file holds this character.
constexpr std::string_view unknownMark = "\xEF\xB7\x90";

std::string unknownValue(std::string_view name) {
    return "$" + std::string(unknownMark) + std::string(name) + "$";
}

std::string onOneLineOf(std::string_view message) {
    return replaceAll(message, "\r\n", " ");
}

/// Absolute, as the system spells it, without "." and "..".
std::string normalPath(std::string_view path) {
    const bool bare = path.find_first_of("\\/") == std::string_view::npos;
    const std::string found = resolvePath(anchoredPath(bare ? joinPath(".", path) : std::string(path)));
    const auto normal = std::filesystem::path(std::u8string(found.begin(), found.end())).lexically_normal().u8string();
    return {normal.begin(), normal.end()};
}

bool holdsTag(const TextFile& file, Section section) {
    return std::any_of(file.lines.begin(), file.lines.end(),
                       [section](const std::string& line) { return equalIgnoringCase(line, openingTag(section)); });
}

CheckedKind kindOfChecked(const std::string& path) {
    const FileKind kind = kindOfFile(path);
    if (kind == FileKind::profile) return CheckedKind::profile;
    if (kind == FileKind::library) return CheckedKind::library;
    if (!endsWithIgnoringCase(path, ".ini")) return CheckedKind::list;
    const auto file = readTextFile(path);
    const bool isConfig = equalIgnoringCase(fileNameOf(path), fileNameOf(configFilePath()));
    if (isConfig || holdsTag(*file, Section::config)) return CheckedKind::configuration;
    if (holdsTag(*file, Section::command) || holdsTag(*file, Section::var)) return CheckedKind::function;
    return CheckedKind::functionList;
}

std::string_view codeOf(const RunTimeError& error, const SourceLine& place) {
    switch (error.number()) {
        case ErrorNumber::invalidCall:
            return statementOf(lineAt(place)) == Statement::loopEnd ? "next-without-for" : "no-equals-sign";
        case ErrorNumber::overflow:
            return "overflow";
        case ErrorNumber::subscriptOutOfRange:
            return "out-of-range";
        case ErrorNumber::typeMismatch:
            return "no-number";
        case ErrorNumber::fileNotFound:
            return "file-not-found";
        case ErrorNumber::inputPastEnd:
            return "end-of-file";
        case ErrorNumber::pathNotFound:
            return "no-directory";
        default:
            return "file-access";
    }
}

/// The attribute line that gives a variable its value in the call at this place; the call itself without one.
SourceLine attributeOf(SourceLine call, std::string_view variable) {
    SourceLine place = call;
    for (++place.line; isAttribute(lineAt(place)); ++place.line) {
        const std::string line = lineAt(place);
        if (equalIgnoringCase(splitAssignment(line.substr(1)).name, variable)) return place;
    }
    return call;
}

Severity severityOf(std::string_view code) {
    const auto* known = std::find_if(findingCodes.begin(), findingCodes.end(),
                                     [code](const FindingCode& each) { return each.name == code; });
    return known == findingCodes.end() ? Severity::error : known->severity;
}

/// What stands between the first two single quotes of a message.
std::string_view quotedIn(std::string_view message) {
    const auto pieces = split(message, "'");
    return pieces.size() > 1 ? pieces[1] : std::string_view();
}

}  // namespace

std::string lineAt(const SourceLine& place) {
    return lineOfFile(place.path, place.line);
}

FileCheck::FileCheck() : desktopBefore_(desktop()) {
    setDesktop(*this);
    guarded({configFilePath(), 0}, [] { readConfig(configFilePath()); });
}

FileCheck::~FileCheck() {
    setDesktop(desktopBefore_);
}

// Files

void FileCheck::check(const std::string& path) {
    const std::string normal = normalPath(path);
    readFilePart(normal, 0, 1);  // whoever names a file that cannot be read is told so
    given_.emplace(normal, path);
    checkWithFollowed(normal);
    directory_.goBack();
}

/// Somebody waits, so loops and calls are followed only as far as they are likely to bring something new.
void FileCheck::checkText(const std::string& path, std::vector<std::string> lines) {
    mostTurns_ = mostCalls_ = 200;
    mostExpansions_ = 50'000;
    const std::string normal = normalPath(path);
    const UnsavedText text(normal, std::move(lines));
    given_.emplace(normal, path);
    checkOnce(normal);
    directory_.goBack();
}

void FileCheck::checkWithFollowed(const std::string& path) {
    std::queue<std::string> waiting({path});
    for (; !waiting.empty(); waiting.pop()) {
        forgetPending();
        if (!checkOnce(waiting.front())) continue;
        for (const auto& followed : pending_) waiting.push(normalPath(followed));
    }
}

/// A profile may call one function a hundred thousand times.
void FileCheck::follows(const std::string& path) {
    if (pendingNames_.insert(path).second) pending_.push_back(path);
}

void FileCheck::forgetPending() {
    pending_.clear();
    pendingNames_.clear();
}

/// False for a file that was checked before, and for one that cannot be read: whoever names it tells that.
bool FileCheck::checkOnce(const std::string& path) {
    if (!textFileExists(path) || !checked_.insert(path).second) return false;
    begin(path);
    shownPath(path);  // its place in the order
    guarded({path, 0}, [&] {
        enterDirectoryOf(path);
        const CheckedKind kind = kindOfChecked(path);
        warnAboutSections(kind, path);
        checkAs(kind, path);
    });
    if (!stopped_ && inHand_ == path) warnAboutUnused();
    return true;
}

void FileCheck::begin(const std::string& path) {
    variableTables.reset();
    engineTables.reset();
    functionAction = {};
    skippedProgram_ = stopped_ = false;
    turns_ = calls_ = expansions_ = givenInCall_ = 0;
    inHand_ = path;
    declared_.clear();
    expandedLines_.clear();
    references_.clear();
    oddTexts_.clear();
}

void FileCheck::checkAs(CheckedKind kind, const std::string& path) {
    switch (kind) {
        case CheckedKind::profile:
        case CheckedKind::library:
            return openAsUser(path, {}, false);
        case CheckedKind::configuration:
            return checkConfiguration(path);
        case CheckedKind::function:
            runBasicFunction(path, FunctionContext(), {});
            return;
        case CheckedKind::functionList:
            return checkFunctionList(path);
        case CheckedKind::list:
            return checkList(path);
    }
}

void FileCheck::warnAboutPresets(std::size_t given, std::size_t rows) {
    if (given <= rows) return;
    add(listLine_, "extra-preset",
        "more values than variables: " + std::to_string(given) + " and " + std::to_string(rows) +
            "; the rest is ignored");
}

void FileCheck::openAsUser(const std::string& path, std::vector<std::string> presets, bool replaying) {
    const bool isProfile = kindOfFile(path) == FileKind::profile;
    const std::size_t given = presets.size();
    PromptOptions options;
    options.presets = std::move(presets);
    options.replaying = replaying;
    options.runAtOnce = [this, &path, given] {
        warnAboutPresets(given, 0);
        runProfile(path, 1);
    };
    options.confirmed = [this, &path, isProfile, given](const std::vector<std::string>& values) {
        warnAboutPresets(given, values.size());
        if (isProfile && listLine_.path.empty()) declared_ = variableTables.profileVariables[1];
        isProfile ? runProfile(path, 1) : runLibrary(path, values);
    };
    isProfile ? loadProfile(path, std::move(options)) : loadFunction(path, std::move(options));
}

/// The settings of the program itself stay.
void FileCheck::checkConfiguration(const std::string& path) {
    const Settings before = settings;
    guarded({path, 0}, [&path] { readConfig(path); });
    if (!settings.basicFunctionPath.empty()) follows(settings.basicFunctionPath);
    settings = before;
    settings.readFrom.reset();
}

void FileCheck::checkFunctionList(const std::string& path) {
    std::set<std::string> names;
    for (const auto& function : listFunctions(path)) {
        attempt(path, function.line + 1, [&] { readTextFile(function.path); });
        follows(function.path);
        if (!names.insert(lowerCase(function.name)).second) {
            add({path, function.line}, "hidden-callable",
                "'" + function.name + "' cannot be called: a function above has the same name");
        }
    }
}

void FileCheck::checkList(const std::string& path) {
    ListFile list(path);
    directory_.goBack();
    SourceLine place{path, 0};
    for (std::string line; list.next(line);) {
        ++place.line;
        checkListLine(place, argumentOfListLine(line));
    }
    forgetPending();
}

/// First the file for itself, then with the values of the line.
void FileCheck::checkListLine(const SourceLine& place, std::string_view line) {
    const FileArgument argument = parseFileArgument(line);
    const FileKind kind = kindOfFile(argument.path);
    if (kind != FileKind::profile && kind != FileKind::library) {
        if (!line.empty()) add(place, "ignored-line", "the line names neither a profile nor a library and is ignored");
        return guarded(place, [&] { enterDirectoryOf(argument.path); });
    }
    const std::string normal = normalPath(argument.path);
    if (!checked_.contains(normal)) {
        const KeptDirectory directory;
        checkWithFollowed(normal);
    }
    skippedProgram_ = stopped_ = false;
    turns_ = calls_ = expansions_ = 0;
    listLine_ = place;
    guarded(place, [&] {
        enterDirectoryOf(argument.path);
        openAsUser(argument.path, argument.presets, true);
    });
    listLine_ = {};
}

// What goes wrong

template <typename Step>
void FileCheck::guarded(const SourceLine& place, Step step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        takes(error, place);
    } catch (const EndProgram&) {
        // Its message has been taken.
    }
}

/// A reference that is left where a user or a plugin would have given a value.
bool FileCheck::concernsUnknown(std::string_view text) const {
    return text.find(unknownMark) != std::string_view::npos || (skippedProgram_ && !leftReferences(text).empty());
}

bool FileCheck::takes(const RunTimeError& error, const SourceLine& place) {
    if (stopped_) return false;
    const std::string report = error.report();
    if (concernsUnknown(report)) return true;
    const bool deepest = engineTables.fileStack.size() >= PerLevel<Loops>::deepestLevel;
    stopped_ = deepest && error.number() == ErrorNumber::subscriptOutOfRange;
    SourceLine at = place;
    std::string text = onOneLineOf(report);
    if (error.line() > 0) {
        at = {error.path(), error.line()};
    } else if (!error.path().empty() && error.path() != place.path) {
        text += ": '" + error.path() + "'";
    }
    if (parseLibraryLine(lineAt(at))) brokenIncludes_.insert(at.path);
    add(at, stopped_ ? "nesting-too-deep" : codeOf(error, at), std::move(text));
    return !stopped_;
}

/// While an include cannot be read, nobody knows what it would have been called.
bool FileCheck::takes(std::string_view message, const Fault& fault) {
    if (concernsUnknown(message)) return true;
    SourceLine place = fault.place;
    const bool isCall = fault.code == "unknown-function" && statementOf(lineAt(place)) == Statement::call;
    if (isCall && brokenIncludes_.contains(place.path)) return true;
    if (fault.code == "unknown-variable") place = attributeOf(place, quotedIn(message));
    add(place, fault.code, onOneLineOf(message));
    return true;
}

/// A fault that only the values of a list's line bring about is one of that line.
void FileCheck::add(const SourceLine& place, std::string_view code, std::string text, int column) {
    const std::string file = normalPath(place.path);
    const auto keyOf = [&code, column](const std::string& path, int line) {
        return path + ":" + std::to_string(line) + ":" + std::to_string(column) + ":" + std::string(code);
    };
    std::string key = keyOf(file, place.line);
    if (known_.contains(key)) return;
    const bool ofList = !listLine_.path.empty() && place.path != listLine_.path;
    if (ofList) {
        if (place.line > 0) text += " (" + shownPath(file) + ":" + std::to_string(place.line) + ")";
        key = keyOf(listLine_.path, listLine_.line) + key;
    }
    if (!known_.insert(key).second) return;
    const SourceLine& shown = ofList ? listLine_ : place;
    findings_.push_back({shownPath(ofList ? listLine_.path : file), std::max(shown.line, 1), column, severityOf(code),
                         std::string(code), std::move(text)});
}

std::string FileCheck::shownPath(const std::string& normal) {
    const auto given = given_.find(normal);
    std::string shown = given == given_.end() ? normal : given->second;
    order_.emplace(shown, order_.size());
    return shown;
}

std::vector<Finding> FileCheck::findings() const {
    std::vector<Finding> sorted = findings_;
    const auto rank = [this](const Finding& each) {
        return std::make_tuple(order_.at(each.path), each.line, each.column);
    };
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&rank](const Finding& left, const Finding& right) { return rank(left) < rank(right); });
    return sorted;
}

// What a run asks

/// Every row is filled, with what nobody knows where it has no choices, and confirmed.
void FileCheck::showPrompt(std::shared_ptr<PromptForm> form, bool /*modal*/) {
    for (auto& row : form->rows) {
        if (!row.backdropVisible) continue;  // the command line has filled it
        if (!row.showsChoices()) row.text = unknownValue(row.name);
        if (row.selected < 0 && row.choices.size() > 1) row.selected = 1;
    }
    confirmPrompt(*form);
}

std::optional<std::string> FileCheck::askText(std::string_view /*prompt*/, std::string_view /*title*/,
                                              std::string_view /*defaultText*/) {
    return unknownValue("answer");
}

}  // namespace brasquelin
