#include "engine/runProfile.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <memory>
#include <utility>

#include "config/configFile.h"
#include "engine/basicFunction.h"
#include "engine/engineTables.h"
#include "engine/expandProfileLine.h"
#include "engine/librarySection.h"
#include "engine/longExpansion.h"
#include "engine/plugins.h"
#include "platform/desktop.h"
#include "platform/onlooker.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/declarations.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

JobSink jobSink;

/// A run-time error that was reported; the levels above stop without a word.
struct RunStopped {};

/// Keeps the file stack in step with the nesting of runs, however they end.
class FileOnStack {
  public:
    explicit FileOnStack(const std::string& path) { engineTables.fileStack.push_back({path, 0}); }
    ~FileOnStack() { engineTables.fileStack.pop_back(); }
    FileOnStack(const FileOnStack&) = delete;
    FileOnStack& operator=(const FileOnStack&) = delete;
};

/// One profile at one level.
class ProfileRun {
  public:
    ProfileRun(const std::string& path, int level);
    void run();

  private:
    bool nextLine();
    int lineNumber() const { return static_cast<int>(position_); }
    /// It lives until the next call.
    const std::string& expanded(std::string_view text) const;
    void markLine(std::size_t number) const { engineTables.fileStack.back().line = static_cast<int>(number); }

    void tellExpansion(std::string_view text) const;
    void tellOpenLoops() const;

    void obeyChecks() const;
    void handleLine();
    void startLoop();
    LoopRecord readLoopHeader();
    int loopNumber(const std::string& text, int unknown) const;
    void endLoop();
    void stayResponsive();
    void runFunctionStatement();
    void runPluginStatement();
    void call();
    void readParameters();
    void callProfile(const std::string& called);
    [[noreturn]] void rejectName(std::string_view name) const;
    [[noreturn]] void rejectParameter() const;
    FunctionContext context() const;

    /// "For" and what belongs to it.
    static constexpr std::size_t headerLines = loopKeys.size() + 1;

    Loops& loops() const { return engineTables.loops[level_]; }
    LoopRecord& currentLoop() const { return loops().records[loops().depth - 1]; }

    const std::string& path_;
    int level_;
    int index_;
    std::shared_ptr<const TextFile> file_;
    std::size_t position_ = 0;  // lines read so far; the number of the line in hand
    std::string_view line_;
    SectionState body_{Section::profile};
    std::vector<std::string> entries_;  // the parameters of the call in hand, as name=value
    unsigned turns_ = 0;
};

int countRun() {
    int count = 0;
    std::from_chars(engineTables.runCounter.data(), engineTables.runCounter.data() + engineTables.runCounter.size(),
                    count);
    engineTables.runCounter = std::to_string(++count);
    return count;
}

struct LinesBeforeBody {
    std::size_t count = 0;
};

/// Nothing in front of the body's first tag is obeyed.
std::size_t linesBeforeBody(const TextFile& file) {
    if (const auto kept = file.understood.get<LinesBeforeBody>()) return kept->count;
    SectionState body(Section::profile);
    const auto first = std::find_if(file.lines.begin(), file.lines.end(),
                                    [&](const std::string& line) { return body.noteTag(line) && body.isOpen(); });
    return file.understood.keep(LinesBeforeBody{static_cast<std::size_t>(first - file.lines.begin())})->count;
}

ProfileRun::ProfileRun(const std::string& path, int level) : path_(path), level_(level), index_(countRun()) {
    engineTables.callables[level].resetCount();
    engineTables.plugins[level].resetCount();
    engineTables.checks[level].resetCount();
    engineTables.checkResults[level].resetCount();
    variableTables.pluginResults[level].resetCount();
}

void ProfileRun::run() {
    processLibrarySection(path_, level_);
    obeyChecks();
    readConfig(configFilePath());
    loops().depth = 0;
    file_ = readTextFile(path_);
    if (!onlooker()) position_ = linesBeforeBody(*file_);
    while (nextLine()) attempt(path_, lineNumber(), [this] { handleLine(); });
    if (onlooker()) tellOpenLoops();
}

void ProfileRun::tellOpenLoops() const {
    const std::size_t open = std::min(loops().depth, loops().records.size());
    for (std::size_t i = 0; i < open; ++i) {
        onlooker()->leavesOpen({path_, static_cast<int>(loops().records[i].bodyLine - headerLines)});
    }
}

bool ProfileRun::nextLine() {
    if (position_ >= file_->lines.size()) return false;
    line_ = file_->lines[position_++];
    markLine(position_);
    return true;
}

const std::string& ProfileRun::expanded(std::string_view text) const {
    if (onlooker()) tellExpansion(text);
    return expandedLine(text, level_, path_, index_);
}

void ProfileRun::tellExpansion(std::string_view text) const {
    const auto expand = [this](const std::string& other) { return expandedLine(other, level_, path_, index_); };
    onlooker()->expands({path_, lineNumber(), text, false, expand});
}

void ProfileRun::obeyChecks() const {
    for (const auto& result : engineTables.checkResults[level_]) {
        const bool vetoes = equalIgnoringCase(result.name, "return") && equalIgnoringCase(result.value, "false");
        if (vetoes) throw EndProgram(0);
    }
}

void ProfileRun::handleLine() {
    if (body_.noteTag(line_) || !body_.isOpen()) return;
    switch (statementOf(line_)) {
        case Statement::none:
            return noteIgnored(path_, lineNumber(), line_);
        case Statement::loopStart:
            return startLoop();
        case Statement::loopEnd:
            return endLoop();
        case Statement::basicFunction:
            return runFunctionStatement();
        case Statement::plugin:
            return runPluginStatement();
        case Statement::call:
            return call();
    }
}

/// The depth is raised first: what the record there was left with by an earlier loop takes part in the header.
void ProfileRun::startLoop() {
    auto& open = loops();
    if (open.depth == Loops::depthLimit) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    ++open.depth;
    ++open.started;
    LoopRecord record = readLoopHeader();
    if (open.records.size() < open.depth) open.records.emplace_back();
    currentLoop() = std::move(record);
}

LoopRecord ProfileRun::readLoopHeader() {
    std::size_t read = 0;
    const auto header = [&] {
        if (!nextLine()) throw RunTimeError(ErrorNumber::inputPastEnd);
        const std::string line = expanded(line_);
        return std::string(valueBehind(loopKeys[read++], line));
    };
    constexpr int unknown = std::numeric_limits<int>::min() / 2;  // of no 16-bit number
    LoopRecord record;
    record.bodyLine = position_ + headerLines;
    record.variable = header();
    const std::string start = header();
    record.start = loopNumber(start, unknown);
    record.end = loopNumber(header(), unknown);
    record.step = loopNumber(header(), unknown);
    record.current = record.start;
    record.currentText = record.start == unknown ? start : std::to_string(record.current);
    const bool once = record.start == unknown || record.end == unknown || record.step == unknown;
    if (once) record.end = record.start, record.step = 1;
    const SourceLine place{path_, static_cast<int>(record.bodyLine - headerLines)};
    if (onlooker()) onlooker()->startsLoop({record.start, record.end, record.step}, place);
    return record;
}

/// A loop whose numbers nobody can tell is gone through once.
int ProfileRun::loopNumber(const std::string& text, int unknown) const {
    const bool isUnknown = onlooker() && onlooker()->isUnknown(text, engineTables.fileStack.back());
    if (isUnknown) return unknown;
    int number = unknown;
    attempt(path_, lineNumber(), [&] { number = toInteger16(text); });
    return number;
}

void ProfileRun::endLoop() {
    if (loops().depth == 0) throw RunTimeError(ErrorNumber::invalidCall);
    LoopRecord& loop = currentLoop();
    loop.current += loop.step;
    loop.currentText = std::to_string(loop.current);
    const bool ended = loop.step >= 1 ? loop.current > loop.end : loop.current < loop.end;
    if (ended || (onlooker() && !onlooker()->mayTurn())) {
        --loops().depth;
    } else {
        position_ = loop.bodyLine - 1;
        stayResponsive();
    }
}

/// A long loop must not freeze the windows, and one that never ends must leave a way to close the program.
void ProfileRun::stayResponsive() {
    constexpr unsigned turnsBetween = 4096;
    if (++turns_ % turnsBetween == 0) desktop().processPendingEvents();
}

FunctionContext ProfileRun::context() const {
    return {level_, path_, engineTables.fileStack.back().line};
}

void ProfileRun::runFunctionStatement() {
    const std::string text = expanded(line_.substr(functionPrefix.size()));
    const Assignment statement = splitAssignment(text);
    std::string jobLine;
    if (!runNamedFunction(statement.name, statement.value, context(), jobLine)) rejectName(statement.name);
    appendJob(jobLine);
}

void ProfileRun::runPluginStatement() {
    const std::string text = expanded(line_.substr(pluginPrefix.size()));
    const Assignment statement = splitAssignment(text);
    for (const auto& plugin : engineTables.plugins[level_]) {
        if (!equalIgnoringCase(plugin.name, statement.name)) continue;
        runPlugin(plugin.path, statement.value, level_);
        appendJob("// Plugin " + std::string(statement.name) + " loaded ...");
        return;
    }
    rejectName(statement.name);
}

void ProfileRun::call() {
    const std::string& name = expanded(line_);
    const std::string& called = lookupCallable(name, level_);
    if (called.empty()) attempt(path_, lineNumber(), [&] { rejectName(name); });  // whoever collects goes on reading
    const std::size_t callLine = position_;
    readParameters();
    markLine(callLine);
    const FileKind kind = kindOfFile(called);
    if (kind == FileKind::library) appendJob(runBasicFunction(called, context(), entries_));
    if (kind == FileKind::profile) callProfile(called);
}

/// The parameter lines as name=value. Only the value is expanded; the first "=" of the raw line splits it.
void ProfileRun::readParameters() {
    std::size_t count = 0;
    const auto& lines = file_->lines;
    const int callLine = lineNumber();
    std::size_t last = position_;
    while (last < lines.size() && isAttribute(lines[last])) ++last;
    entries_.resize(std::max(entries_.size(), last - position_));
    while (position_ < last) {
        nextLine();
        const Assignment parameter = splitAssignment(line_.substr(1));
        if (onlooker()) onlooker()->gives(parameter.name, engineTables.fileStack.back(), callLine);
        attempt(path_, lineNumber(), [&] {
            if (!parameter.hasEquals) rejectParameter();
            const std::string& value = expanded(parameter.value);
            entries_[count++].assign(parameter.name).append(1, '=').append(value);
        });
    }
    entries_.resize(count);
}

void ProfileRun::callProfile(const std::string& called) {
    auto& values = variableTables.values[level_ + 1];
    values.resetCount();
    if (onlooker() && !onlooker()->mayCall()) return;
    readProfileVariables(called, level_ + 1);
    for (auto& entry : entries_) values.append(std::move(entry));
    if (!runProfile(called, level_ + 1)) throw RunStopped();
}

void ProfileRun::rejectName(std::string_view name) const {
    endWithMessage("Error : unknown function '" + std::string(name) + "' in file '" + path_ + "' at line " +
                       std::to_string(engineTables.fileStack.back().line),
                   {"unknown-function", engineTables.fileStack.back()});
}

void ProfileRun::rejectParameter() const {
    endWithMessage("Parse error in file '" + path_ + "' at line " + std::to_string(position_),
                   {"no-equals-sign", {path_, lineNumber()}});
}

}  // namespace

JobSink setJobSink(JobSink sink) {
    return std::exchange(jobSink, std::move(sink));
}

void appendJob(std::string_view line) {
    if (jobSink) jobSink(line);
}

bool runProfile(const std::string& path, int level) {
    const FileOnStack onStack(path);
    const LongExpansion watched(path);
    try {
        ProfileRun(path, level).run();
        return true;
    } catch (const std::exception&) {
        report(currentRunTimeError(), path, engineTables.fileStack.back().line);
    } catch (const RunStopped&) {
        // Reported where it happened.
    }
    return false;
}

bool runLibrary(const std::string& path, const std::vector<std::string>& arguments) {
    const LongExpansion watched(path);
    return reporting(path, [&] { appendJob(runPromptedLibrary(path, arguments)); });
}

}  // namespace brasquelin
