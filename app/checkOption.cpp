#include "app/checkOption.h"

#include "app/startUp.h"
#include "check/checkFile.h"
#include "platform/fileAddress.h"
#include "platform/standardStreams.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

int refuse(const std::string& reason) {
    print(StandardStream::error, "brasquelin: " + reason + "\n");
    return 2;
}

/// False, after a message, for a file that cannot be read.
bool look(Checker& checker, const std::string& path) {
    try {
        checker.check(path);
        return true;
    } catch (const RunTimeError& error) {
        print(StandardStream::error, "brasquelin: '" + path + "': " + replaceAll(error.report(), "\r\n", " ") + "\n");
        return false;
    }
}

int tell(const std::vector<std::string>& paths, bool json) {
    resetTables();
    Checker checker;
    bool complete = true;
    for (const auto& path : paths) complete = look(checker, pathOfAddress(path)) && complete;
    const auto findings = checker.findings();
    const std::string text = json ? asJson(findings) : asText(findings, isTerminal(StandardStream::output));
    if (!text.empty()) print(StandardStream::output, text);
    if (!complete) return 2;
    return holdsError(findings) ? 1 : 0;
}

}  // namespace

int checkFiles(std::vector<std::string> arguments) {
    bool json = false;
    while (!arguments.empty() && arguments.front().starts_with("--")) {
        const bool isFormat = arguments.front() == "--format" && arguments.size() > 1;
        if (!isFormat) return refuse("unknown option '" + arguments.front() + "' of --check; there is --format");
        if (arguments[1] != "json" && arguments[1] != "text") return refuse("no format '" + arguments[1] + "'");
        json = arguments[1] == "json";
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.empty()) return refuse("--check [--format text|json] FILE ...");
    return tell(arguments, json);
}

}  // namespace brasquelin
