#include "engine/plugins.h"

#include "engine/engineTables.h"
#include "platform/childProcess.h"
#include "platform/directoryLock.h"
#include "platform/files.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/textFiles.h"
#include "text/substitution.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

constexpr std::size_t extensionLength = 3;
constexpr std::string_view resultSeparator = " = ";

void appendResult(const std::string& line, const std::string& path, int number, Table<NamedValue>& results) {
    const auto separator = line.find(resultSeparator);
    if (separator == std::string::npos) {
        throw RunTimeError(ErrorNumber::invalidCall, path, number)
            .because("The line '" + line + "' holds no \"" + std::string(resultSeparator) + "\".");
    }
    results.append({line.substr(0, separator), line.substr(separator + resultSeparator.size())});
}

/// Where the file is looked for is a riddle to whoever named the program without ".exe".
std::shared_ptr<const TextFile> readResults(const std::string& path, std::string_view programPath) {
    try {
        return readTextFile(path);
    } catch (const RunTimeError& error) {
        if (error.number() != ErrorNumber::fileNotFound) throw;
        throw error.because("The answers of '" + std::string(programPath) +
                            "' are read from there: its path with \"var\" for the last three characters.");
    }
}

void collectResults(const std::string& path, std::string_view programPath, Table<NamedValue>& results) {
    const auto file = readResults(path, programPath);
    int number = 0;
    for (const auto& line : file->lines) appendResult(line, path, ++number, results);
    deleteFile(path);
    forgetTextFiles();
}

/// A name without room for the ending has no result file: the path would lead to another file.
bool namesProgram(std::string_view programPath) {
    const std::string name = fileNameOf(programPath);
    return name.size() >= extensionLength && name.find_first_not_of(' ') != std::string::npos;
}

/// Raises what the start of a missing program would. One that is named without a directory may stand
/// anywhere on the search path.
void requireProgram(std::string_view programPath) {
    const bool named = programPath.find_first_of("\\/") != std::string_view::npos;
    if (named && resolveProgram(programPath).empty()) {
        throw RunTimeError(ErrorNumber::fileNotFound, std::string(programPath));
    }
}

void runProgram(std::string_view programPath, std::string_view parameters, Table<NamedValue>& results) {
    if (!namesProgram(programPath)) throw RunTimeError(ErrorNumber::fileNotFound);
    requireProgram(programPath);  // before anything is removed for its sake
    if (onlooker() && !onlooker()->mayRunProgram(programPath)) return;
    const std::string resultPath = std::string(withoutLast(programPath, extensionLength)) + "var";
    DirectoryLock lock;
    lock.coverStartedPrograms();
    deleteFile(resultPath);  // stale values are never read
    forgetTextFiles();
    const std::string command = "\"" + std::string(programPath) + "\" " + std::string(parameters);
    shellAndWait(command, WindowStyle::hidden, "'" + fileNameOf(programPath) + "'");
    if (childCancelled()) throw RunTimeError(ErrorNumber::userInterrupt, std::string(programPath));
    collectResults(resultPath, programPath, results);
}

}  // namespace

void runPlugin(std::string_view programPath, std::string_view parameters, int level) {
    runProgram(programPath, parameters, variableTables.pluginResults[level]);
}

void runCheck(std::string_view programPath, std::string_view parameters, int level) {
    runProgram(programPath, parameters, engineTables.checkResults[level]);
}

std::string pluginNameOf(std::string_view programPath) {
    constexpr std::size_t dottedExtensionLength = 4;
    const std::string fileName = fileNameOf(programPath);
    return std::string(withoutLast(fileName, dottedExtensionLength));
}

}  // namespace brasquelin
