#include "app/programOptions.h"

#include <string>

#include "app/checkOption.h"
#include "app/dryRunOption.h"
#include "batch/wireLink.h"
#include "platform/standardStreams.h"

namespace brasquelin {

namespace {

constexpr std::string_view help =
    "Builds command lines from templates and runs them as one batch.\n"
    "\n"
    "  brasquelin                           the main window\n"
    "  brasquelin FILE                      opens a profile (.bqp) or library (.bqs), runs it, executes its jobs\n"
    "  brasquelin FILE 001=value 002=...    the same with the values of its variables, in the order of declaration;\n"
    "                                       \"#ask#\" leaves one to the user, \"#pop:key\" asks once and remembers\n"
    "  brasquelin -f LIST                   replays a list of such command lines as one batch, unattended\n"
    "  brasquelin --check [--format json] FILE ...\n"
    "                                       tells what is wrong in files of any kind, and where\n"
    "  brasquelin --dry-run [--with-plugins] FILE [001=value ...]\n"
    "  brasquelin --dry-run [--with-plugins] -f LIST\n"
    "                                       prints the finished lines and runs nothing\n"
    "  brasquelin --run [TITLE] BATCHFILE   runs a batch file in the run window; without a display on the console\n"
    "  brasquelin --run --resume BATCHFILE  the same for the jobs that have not ended well yet\n"
    "  brasquelin --run --no-window ...     on the console, also where there is a display\n"
    "  brasquelin --help                    prints this text\n"
    "  brasquelin --version                 prints the version\n"
    "\n"
    "A FILE or LIST may be a file:// address. The exit status is 1 when something went wrong.\n";

}  // namespace

std::optional<int> answerOption(std::string_view commandLine, const std::vector<std::string>& arguments) {
    const std::string_view option = commandLine.substr(0, commandLine.find(' '));
    if (!option.starts_with("--") || option == runWindowOption) return std::nullopt;
    if (option == "--help") {
        print(StandardStream::output, help);
    } else if (option == "--version") {
        print(StandardStream::output, "Brasquelin " BRASQUELIN_VERSION "\n");
    } else if (option == "--check") {
        return checkFiles({arguments.begin() + 1, arguments.end()});
    } else if (option == "--dry-run") {
        return dryRun(commandLine.substr(option.size()));
    } else {
        print(StandardStream::error,
              "brasquelin: unknown option '" + std::string(option) + "'; --help lists what there is\n");
        return 2;
    }
    return 0;
}

}  // namespace brasquelin
