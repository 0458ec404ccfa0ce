#include "check/checkFile.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "check/codes.h"
#include "check/leftReferences.h"
#include "config/configFile.h"
#include "engine/basicFunction.h"
#include "engine/engineTables.h"
#include "engine/runProfile.h"
#include "platform/console/consoleDesktop.h"
#include "platform/files.h"
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

enum class CheckedKind { profile, library, configuration, function, functionList, list };

bool holdsTag(const TextFile& file, Section section) {
    return std::any_of(file.lines.begin(), file.lines.end(),
                       [section](const std::string& line) { return equalIgnoringCase(line, openingTag(section)); });
}

/// An ".ini" file is told by its sections; a file of any other name is a list of command lines.
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

/// Empty where there is no such line.
std::string lineAt(const SourceLine& place) {
    try {
        const auto file = readTextFile(place.path);
        const auto index = static_cast<std::size_t>(place.line) - 1;
        return index < file->lines.size() ? file->lines[index] : std::string();
    } catch (const RunTimeError&) {
        return {};
    }
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

/// Reads files in the interpreter's own way and notes what goes wrong.
class Checker::Look : public Onlooker, public ConsoleDesktop {
  public:
    Look();
    ~Look() override;
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;

    void check(const std::string& path);
    std::vector<Finding> findings() const;

    // What a run tells and asks
    bool takes(const RunTimeError& error, const SourceLine& place) override;
    bool takes(std::string_view message, const Fault& fault) override;
    bool goesOn() override { return !stopped_; }
    bool mayRunProgram(std::string_view path) override;
    bool mayWrite() override { return false; }
    bool mayTurn() override { return ++turns_ < mostTurns; }
    bool mayCall() override { return ++calls_ < mostCalls; }
    void follows(const std::string& path) override { pending_.push_back(path); }
    bool isUnknown(std::string_view number, const SourceLine& /*place*/) override { return concernsUnknown(number); }

    bool hasWindows() const override { return true; }
    void showPrompt(std::shared_ptr<PromptForm> form, bool modal) override;
    std::optional<std::string> askText(std::string_view prompt, std::string_view title,
                                       std::string_view defaultText) override;
    std::string askFile(const FileDialogRequest& /*request*/) override { return {}; }

  protected:
    void presentMessage(std::string_view /*text*/, std::string_view /*title*/, Icon /*icon*/) override {}

  private:
    static constexpr int mostTurns = 10'000;
    static constexpr int mostCalls = 10'000;

    void checkWithFollowed(const std::string& path);
    bool checkOnce(const std::string& path);
    void checkAs(CheckedKind kind, const std::string& path);
    void begin(const std::string& path);
    void checkConfiguration(const std::string& path);
    void checkFunctionList(const std::string& path);
    void checkList(const std::string& path);
    void checkListLine(const SourceLine& place, std::string_view line);
    void openAsUser(const std::string& path, std::vector<std::string> presets, bool replaying);

    template <typename Step>
    void guarded(const SourceLine& place, Step step);
    bool concernsUnknown(std::string_view text) const;
    void add(SourceLine place, std::string_view code, std::string text);
    std::string shownPath(const std::string& normal);

    LookingOn lookingOn_{*this};
    Desktop& desktopBefore_;
    std::string directoryBefore_;
    std::vector<Finding> findings_;
    std::set<std::string> known_;                        // places and codes of the findings
    std::set<std::string> checked_;                      // normal paths
    std::map<std::string, std::string> given_;           // normal paths to those of the caller
    std::map<std::string, std::size_t> order_;           // of shown paths
    std::vector<std::string> pending_;                   // includes and called functions
    std::set<std::string, std::less<>> brokenIncludes_;  // profiles of which an include could not be read
    SourceLine listLine_;                                // while a line of a list is replayed
    bool skippedProgram_ = false;                        // by the file in hand
    bool stopped_ = false;                               // the file in hand cannot go on
    int turns_ = 0;
    int calls_ = 0;
};

Checker::Look::Look() : desktopBefore_(desktop()), directoryBefore_(normalPath(".")) {
    setDesktop(*this);
    setJobSink({});
    guarded({configFilePath(), 0}, [] { readConfig(configFilePath()); });
}

Checker::Look::~Look() {
    setDesktop(desktopBefore_);
    begin({});
    changeDirectory(directoryBefore_);
}

// Files

void Checker::Look::check(const std::string& path) {
    const std::string normal = normalPath(path);
    readFileBytes(normal);  // whoever names a file that cannot be read is told so
    given_.emplace(normal, path);
    checkWithFollowed(normal);
    changeDirectory(directoryBefore_);
}

void Checker::Look::checkWithFollowed(const std::string& path) {
    std::vector<std::string> waiting{path};
    while (!waiting.empty()) {
        const std::string next = waiting.front();
        waiting.erase(waiting.begin());
        pending_.clear();
        if (!checkOnce(next)) continue;
        for (const auto& followed : pending_) waiting.push_back(normalPath(followed));
    }
}

/// False for a file that was checked before, and for one that cannot be read: whoever names it tells that.
bool Checker::Look::checkOnce(const std::string& path) {
    if (!fileExists(path) || !checked_.insert(path).second) return false;
    begin(path);
    guarded({path, 0}, [&] { checkAs(kindOfChecked(path), path); });
    return true;
}

void Checker::Look::begin(const std::string& path) {
    variableTables.reset();
    engineTables.reset();
    functionAction = {};
    skippedProgram_ = stopped_ = false;
    turns_ = calls_ = 0;
    if (!path.empty()) enterDirectoryOf(path);
}

void Checker::Look::checkAs(CheckedKind kind, const std::string& path) {
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

void Checker::Look::openAsUser(const std::string& path, std::vector<std::string> presets, bool replaying) {
    const bool isProfile = kindOfFile(path) == FileKind::profile;
    PromptOptions options;
    options.presets = std::move(presets);
    options.replaying = replaying;
    options.runAtOnce = [&path] { runProfile(path, 1); };
    options.confirmed = [&path, isProfile](const std::vector<std::string>& values) {
        isProfile ? runProfile(path, 1) : runLibrary(path, values);
    };
    isProfile ? loadProfile(path, std::move(options)) : loadFunction(path, std::move(options));
}

/// The settings of the program itself stay.
void Checker::Look::checkConfiguration(const std::string& path) {
    const Settings before = settings;
    guarded({path, 0}, [&path] { readConfig(path); });
    if (!settings.basicFunctionPath.empty()) pending_.push_back(settings.basicFunctionPath);
    settings = before;
    settings.readFrom.reset();
}

void Checker::Look::checkFunctionList(const std::string& path) {
    for (const auto& function : listFunctions(path)) {
        attempt(path, function.line + 1, [&] { readTextFile(function.path); });
        pending_.push_back(function.path);
    }
}

void Checker::Look::checkList(const std::string& path) {
    const TextFile list = readOemTextFile(path);
    changeDirectory(directoryBefore_);
    SourceLine place{path, 0};
    for (const auto& line : list.lines) {
        ++place.line;
        checkListLine(place, argumentOfListLine(line));
    }
    pending_.clear();
}

/// First the file for itself, then with the values of the line.
void Checker::Look::checkListLine(const SourceLine& place, std::string_view line) {
    const FileArgument argument = parseFileArgument(line);
    const FileKind kind = kindOfFile(argument.path);
    if (kind != FileKind::profile && kind != FileKind::library) {
        return guarded(place, [&] { enterDirectoryOf(argument.path); });
    }
    const std::string normal = normalPath(argument.path);
    if (!checked_.contains(normal)) {
        const std::string directory = normalPath(".");
        checkWithFollowed(normal);
        changeDirectory(directory);
    }
    skippedProgram_ = stopped_ = false;
    turns_ = calls_ = 0;
    listLine_ = place;
    guarded(place, [&] {
        enterDirectoryOf(argument.path);
        openAsUser(argument.path, argument.presets, true);
    });
    listLine_ = {};
}

// What goes wrong

template <typename Step>
void Checker::Look::guarded(const SourceLine& place, Step step) {
    try {
        step();
    } catch (const RunTimeError& error) {
        takes(error, place);
    } catch (const EndProgram&) {
        // Its message has been taken.
    }
}

/// A reference that is left where a user or a plugin would have given a value.
bool Checker::Look::concernsUnknown(std::string_view text) const {
    return text.find(unknownMark) != std::string_view::npos || (skippedProgram_ && !leftReferences(text).empty());
}

bool Checker::Look::takes(const RunTimeError& error, const SourceLine& place) {
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
bool Checker::Look::takes(std::string_view message, const Fault& fault) {
    if (concernsUnknown(message)) return true;
    SourceLine place = fault.place;
    const bool isCall = fault.code == "unknown-function" && statementOf(lineAt(place)) == Statement::call;
    if (isCall && brokenIncludes_.contains(place.path)) return true;
    if (fault.code == "unknown-variable") place = attributeOf(place, quotedIn(message));
    add(place, fault.code, onOneLineOf(message));
    return true;
}

/// A fault that only the values of a list's line bring about is one of that line.
void Checker::Look::add(SourceLine place, std::string_view code, std::string text) {
    const std::string file = normalPath(place.path);
    const auto keyOf = [&code](const std::string& path, int line) {
        return path + ":" + std::to_string(line) + ":" + std::string(code);
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
    findings_.push_back({shownPath(ofList ? listLine_.path : file), std::max(shown.line, 1), 1, severityOf(code),
                         std::string(code), std::move(text)});
}

std::string Checker::Look::shownPath(const std::string& normal) {
    const auto given = given_.find(normal);
    std::string shown = given == given_.end() ? normal : given->second;
    order_.emplace(shown, order_.size());
    return shown;
}

std::vector<Finding> Checker::Look::findings() const {
    std::vector<Finding> sorted = findings_;
    const auto rank = [this](const Finding& each) {
        return std::make_tuple(order_.at(each.path), each.line, each.column);
    };
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&rank](const Finding& left, const Finding& right) { return rank(left) < rank(right); });
    return sorted;
}

// What a run asks

bool Checker::Look::mayRunProgram(std::string_view /*path*/) {
    skippedProgram_ = true;
    return false;
}

/// Every row is filled, with what nobody knows where it has no choices, and confirmed.
void Checker::Look::showPrompt(std::shared_ptr<PromptForm> form, bool /*modal*/) {
    for (auto& row : form->rows) {
        if (!row.backdropVisible) continue;  // the command line has filled it
        if (!row.showsChoices()) row.text = unknownValue(row.name);
        if (row.selected < 0 && row.choices.size() > 1) row.selected = 1;
    }
    confirmPrompt(*form);
}

std::optional<std::string> Checker::Look::askText(std::string_view /*prompt*/, std::string_view /*title*/,
                                                  std::string_view /*defaultText*/) {
    return unknownValue("answer");
}

Checker::Checker() : look_(std::make_unique<Look>()) {}
Checker::~Checker() = default;

void Checker::check(const std::string& path) {
    look_->check(path);
}

std::vector<Finding> Checker::findings() const {
    return look_->findings();
}

}  // namespace brasquelin
