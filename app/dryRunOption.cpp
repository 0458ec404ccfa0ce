#include "app/dryRunOption.h"

#include <algorithm>
#include <string>
#include <vector>

#include "app/openFile.h"
#include "app/startUp.h"
#include "check/dryRun.h"
#include "config/configFile.h"
#include "platform/listFile.h"
#include "platform/reporting.h"
#include "platform/standardStreams.h"
#include "vars/commandLine.h"

namespace brasquelin {

namespace {

void open(DryRun& run, std::string_view argumentText) {
    run.beginFile();
    openArgument(parseFileArgument(argumentText));
}

void replay(DryRun& run, const std::string& listPath) {
    ListFile list(listPath);
    runState.replaying = true;
    for (std::string line; list.next(line);) open(run, argumentOfListLine(line));
    runState.completed = true;
}

void printLines(const std::vector<DryRunLine>& lines) {
    std::string text;
    for (const auto& line : lines) text.append(line.text).append("\n");
    if (!text.empty()) print(StandardStream::output, text);
}

int perform(DryRun& run, const std::string& arguments) {
    if (!reporting(configFilePath(), [] { readConfig(configFilePath()); })) return 1;
    if (isListMode(arguments)) {
        replay(run, listFilePath(arguments));
    } else {
        open(run, arguments);
    }
    if (runState.completed) printLines(run.lines());
    run.tellLeft();
    return run.hadFailure() ? 1 : 0;
}

}  // namespace

int dryRun(std::string_view arguments) {
    constexpr std::string_view pluginsOption = "--with-plugins ";
    const auto skipBlanks = [&] {
        arguments.remove_prefix(std::min(arguments.find_first_not_of(' '), arguments.size()));
    };
    skipBlanks();
    const bool withPlugins = arguments.starts_with(pluginsOption);
    if (withPlugins) arguments.remove_prefix(pluginsOption.size());
    skipBlanks();
    if (arguments.empty() || arguments.starts_with("--")) {
        print(StandardStream::error, "brasquelin: --dry-run [--with-plugins] FILE [001=value ...], or -f LIST\n");
        return 2;
    }
    resetTables();
    settings.commandLine = arguments;
    DryRun run(withPlugins);
    try {
        return perform(run, std::string(arguments));
    } catch (const EndProgram& end) {
        return end.exitStatus();
    } catch (const std::exception&) {
        report(currentRunTimeError());
        return 1;
    }
}

}  // namespace brasquelin
