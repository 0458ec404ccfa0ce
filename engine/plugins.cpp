#include "engine/plugins.h"

#include "engine/engineTables.h"
#include "platform/childProcess.h"
#include "platform/files.h"
#include "platform/textFiles.h"
#include "text/text.h"
#include "vars/variableTables.h"

namespace brasquelin {

namespace {

constexpr std::size_t extensionLength = 3;
constexpr std::string_view resultSeparator = " = ";

void appendResult(const std::string& line, const std::string& path, int number, Table<NamedValue>& results) {
    const auto separator = line.find(resultSeparator);
    if (separator == std::string::npos) throw RunTimeError(ErrorNumber::invalidCall, path, number);
    results.append({line.substr(0, separator), line.substr(separator + resultSeparator.size())});
}

void collectResults(const std::string& path, Table<NamedValue>& results) {
    const auto file = readTextFile(path);
    int number = 0;
    for (const auto& line : file->lines) appendResult(line, path, ++number, results);
    deleteFile(path);
    forgetTextFiles();
}

void runProgram(std::string_view programPath, std::string_view parameters, Table<NamedValue>& results) {
    const std::string resultPath = std::string(withoutLast(programPath, extensionLength)) + "var";
    deleteFile(resultPath);  // stale values are never read
    forgetTextFiles();
    const std::string command = "\"" + std::string(programPath) + "\" " + std::string(parameters);
    shellAndWait(command, WindowStyle::hidden);
    collectResults(resultPath, results);
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
