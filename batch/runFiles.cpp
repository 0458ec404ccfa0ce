#include "batch/runFiles.h"

#include <filesystem>
#include <optional>
#include <random>

#include "platform/appendFile.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/systemFiles.h"
#include "platform/systemLock.h"
#include "text/runTimeError.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr std::string_view journalHead = "log ";  // and the size of the log when the run began

RunFiles filesNamed(const std::string& log, const std::string& output) {
    RunFiles files{log, output, log + ".run", {}};
    files.shell.script = joinPath(files.directory, "script.bat");
    files.shell.journal = joinPath(files.directory, "ended");
    files.shell.stop = joinPath(files.directory, "stop");
    files.shell.stopAtFailure = joinPath(files.directory, "stop-at-failure");
    return files;
}

/// The batch file's path without its extension.
std::string stemOf(const std::string& batchFile) {
    const auto name = batchFile.find_last_of("\\/");
    const auto dot = batchFile.rfind('.');
    const bool hasExtension = dot != std::string::npos && (name == std::string::npos || dot > name + 1);
    return hasExtension ? batchFile.substr(0, dot) : batchFile;
}

bool makeDirectory(const std::string& path) {
    std::error_code error;
    std::filesystem::create_directory(systemPath(path), error);
    return directoryExists(path);
}

/// Nothing when the directory cannot be written.
std::optional<RunFiles> claimBeside(const std::string& stem) {
    constexpr int most = 1000;
    for (int number = 1; number < most; ++number) {
        const std::string name = number == 1 ? stem : stem + '-' + std::to_string(number);
        RunFiles files = filesNamed(name + ".joblog", name + ".output");
        if (!makeDirectory(files.directory)) return std::nullopt;
        if (tryLockDirectory(files.directory)) return files;
    }
    return std::nullopt;
}

std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// Directories of temporary files, for single lines and for batch files that lie where nothing can be written; in front
/// of a number.
constexpr std::string_view nameForLines = "brasquelin-line-";
constexpr std::string_view nameForBatches = "brasquelin-batch-";

std::string temporaryPath(std::string_view name) {
    return textOf(std::filesystem::temp_directory_path() / name);
}

std::string newTemporaryDirectory(std::string_view name) {
    std::random_device random;
    std::string directory = temporaryPath(name) + std::to_string(random());
    if (!makeDirectory(directory)) throw RunTimeError(ErrorNumber::pathFileAccess, directory).ofWriting();
    return directory;
}

RunFiles claimTemporary(std::string_view name) {
    auto files = claimBeside(joinPath(newTemporaryDirectory(name), "brasquelin"));
    if (!files) throw RunTimeError(ErrorNumber::pathFileAccess, "brasquelin.joblog").ofWriting();
    return *files;
}

std::string contentsOf(const std::string& path) {
    return fileExists(path) ? readFileBytes(path) : std::string();
}

/// What the shell of an earlier run has noted and the log lacks.
std::vector<JobLogEntry> missingEntries(const RunFiles& files, const std::string& log,
                                        const std::vector<std::string>& jobs) {
    const std::string journal = contentsOf(files.shell.journal);
    if (!journal.starts_with(journalHead)) return {};
    const std::size_t before = std::strtoull(journal.c_str() + journalHead.size(), nullptr, 10);
    const std::size_t logged = parseJobLog(std::string_view(log).substr(std::min(before, log.size()))).size();
    return entriesOfJournal(journal, logged, jobs, wallClock());
}

}  // namespace

RunFiles claimRunFiles(const std::string& batchFile) {
    // The lines may change the shell's directory.
    const std::string path = textOf(std::filesystem::absolute(systemPath(batchFile)));
    if (auto beside = claimBeside(stemOf(path))) return *beside;
    return claimTemporary(nameForBatches);
}

RunFiles temporaryRunFiles() {
    return claimTemporary(nameForLines);
}

void removeTemporaryRun(const std::string& log) {
    const std::string directory = dirOf(log);
    if (!directory.starts_with(temporaryPath(nameForLines))) return;
    deleteFile(log);
    deleteFile(joinPath(directory, "brasquelin.output"));
    removeDirectory(directory);
}

bool claimAgain(const std::string& log, const std::string& output, RunFiles& files) {
    files = filesNamed(log, output);
    return makeDirectory(files.directory) && tryLockDirectory(files.directory);
}

EarlierRun readEarlierRun(const RunFiles& files, const std::vector<std::string>& jobs) {
    const std::string log = contentsOf(files.log);
    std::vector<JobLogEntry> entries = parseJobLog(log);
    for (auto& entry : missingEntries(files, log, jobs)) entries.push_back(std::move(entry));
    return earlierRunOf(jobs, entries);
}

void mendLog(const RunFiles& files, const std::vector<std::string>& jobs) {
    const std::string log = contentsOf(files.log);
    std::string text;
    if (log.empty()) text = jobLogHeader;
    if (!log.empty() && !log.ends_with('\n')) text = "\n";  // a line that was broken off
    for (const auto& entry : missingEntries(files, log, jobs)) text += encode(entry);
    if (!text.empty()) openForAppending(files.log, false)->append(text);
    deleteFile(files.shell.journal);
}

void prepareShellFiles(const RunFiles& files, const std::vector<ShellLine>& lines, const std::string& token,
                       std::uint64_t logSize) {
    writeFile(files.shell.script, shellScript(lines, files.shell, token));
    writeFile(files.shell.journal, std::string(journalHead) + std::to_string(logSize) + '\n');
    deleteFile(files.shell.stop);
    deleteFile(files.shell.stopAtFailure);
}

void setSign(const std::string& path, bool wanted) {
    if (wanted) writeFile(path, {});
    if (!wanted) deleteFile(path);
}

void releaseRunFiles(const RunFiles& files) {
    for (const auto& path : {files.shell.script, files.shell.journal, files.shell.stop, files.shell.stopAtFailure}) {
        deleteFile(path);
    }
    removeDirectory(files.directory);
    unlockDirectory();
}

}  // namespace brasquelin
