#include "platform/jobShell.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "platform/posix/descendants.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/shellCommand.h"
#include "platform/posix/spawn.h"
#include "platform/posix/systemError.h"
#include "text/text.h"

namespace brasquelin {

namespace {

constexpr int journalDescriptor = 7;  // the shell knows none above 9
constexpr int markDescriptor = 8;     // a line may send the shell's own output elsewhere

/// What the shell does behind each line: number, exit status, lines so far. The journal comes first: it outlives
/// whoever reads the output.
constexpr char afterLine[] = R"script(brasquelin_ended() {
    brasquelin_at=$3
    echo "$1 $2" >&7
    if [ -e "$brasquelin_stop" ] || { [ "$2" != 0 ] && [ -e "$brasquelin_stop_at_failure" ]; }; then
        echo "MARK$1 $2 last" >&8
        brasquelin_exits=yes
        exit
    fi
    echo "MARK$1 $2" >&8
}
)script";

/// Where sh is bash, a mistake such as "${x:?}" in a line ends the shell whatever stands before "eval". Another one
/// takes its place, with all that the lines have set, and goes on behind that line: each has two lines in the script.
constexpr char behindMistake[] = R"script(brasquelin_at=0
brasquelin_exits=
brasquelin_exit() {
    brasquelin_status=$?
    brasquelin_exits=yes
    exit "${1-$brasquelin_status}"
}
brasquelin_go_on() {
    exec "$BASH" -c '
        IFS= read -r -d "" brasquelin_state <&9
        exec 9<&-
        eval "$brasquelin_state" 2>/dev/null
        mapfile -s $((2 * brasquelin_at + HEADER + 1)) brasquelin_rest <"$brasquelin_script"
        [ ${#brasquelin_rest[@]} -gt 0 ] || exit "$brasquelin_status"
        printf -v brasquelin_rest %s "${brasquelin_rest[@]}"
        brasquelin_rest="unset brasquelin_rest brasquelin_state; (exit $brasquelin_status)
$brasquelin_rest"
        trap '\''brasquelin_mistake $? "$BASH_COMMAND" "$@"'\'' EXIT
        eval "$brasquelin_rest"' "$0" "$@" 9<<EOF
$(declare -p; declare -f; alias -p; shopt -p; set +o)
EOF
}
brasquelin_mistake() {
    brasquelin_status=$1
    # A mistake has left the command that the shell was at, a signal has not. What "set -e" ends is no mistake.
    case $brasquelin_exits$- in *e*) return "$1" ;; esac
    case $2 in
        '. '* | 'eval "$brasquelin_rest"') ;;
        *) return "$1" ;;
    esac
    shift 2
    brasquelin_go_on "$@"
}
if [ -n "${BASH_VERSION-}" ]; then
    shopt -s expand_aliases
    alias exit=brasquelin_exit
    trap 'brasquelin_mistake $? "$BASH_COMMAND" "$@"' EXIT
fi
)script";

struct Pipe {
    std::array<int, 2> ends{-1, -1};
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) raise(errno, FileUse::reading, "/bin/sh");
    }
};

/// A session of its own has no terminal: nothing can wait for an answer there that nobody gives.
pid_t spawnShell(const std::string& command, const std::string& batchFile, int output, int journal) {
    Spawn spawn;
    spawn.inNewSession();
    spawn.giveNothing(STDIN_FILENO);
    for (const int number : {STDOUT_FILENO, STDERR_FILENO, markDescriptor}) spawn.give(output, number);
    spawn.give(journal, journalDescriptor);
    return spawn.start({"/bin/sh", "-c", command, "brasquelin-batch", batchFile});
}

/// Out of the way of the descriptors that the shell gets.
int aboveNine(int descriptor) {
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, 10);
    close(descriptor);
    return moved;
}

void signalAll(const std::vector<pid_t>& processes, int signal) {
    for (const pid_t process : processes) kill(process, signal);
}

class PosixJobShell : public JobShell {
  public:
    PosixJobShell(const ShellFiles& files, const std::string& batchFile) {
        adoptOrphans();
        Pipe pipe;
        output_ = aboveNine(pipe.ends[0]);
        const Descriptor writing(aboveNine(pipe.ends[1]));
        const Descriptor journal(
            aboveNine(open(files.journal.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666)));
        fcntl(output_, F_SETFL, O_NONBLOCK);
        shell_ = spawnShell(". " + quotedForShell(files.script), batchFile, writing.get(), journal.get());
    }
    ~PosixJobShell() override {
        if (shell_ != 0) end();
        if (output_ >= 0) close(output_);
    }
    PosixJobShell(const PosixJobShell&) = delete;
    PosixJobShell& operator=(const PosixJobShell&) = delete;

    bool read(std::string& bytes, std::uint32_t milliseconds) override;
    void end() override;
    ProcessEnd ended() const override { return end_; }
    void leave(const std::string& outputFile) override;

  private:
    void collectEnded();
    /// False at the end of the output, and when there is nothing for now.
    bool take(std::string& bytes);

    pid_t shell_ = 0;  // 0 once it was collected
    int output_ = -1;
    bool closed_ = false;
    ProcessEnd end_;
};

bool PosixJobShell::read(std::string& bytes, std::uint32_t milliseconds) {
    pollfd waited{closed_ ? -1 : output_, POLLIN, 0};
    const bool known = shell_ == 0;  // looked at before the last bytes are taken
    poll(&waited, 1, known ? 0 : static_cast<int>(milliseconds));
    if (take(bytes)) return true;
    collectEnded();
    return !known;
}

bool PosixJobShell::take(std::string& bytes) {
    constexpr std::size_t step = 1U << 16U;
    if (closed_) return false;
    const std::size_t before = bytes.size();
    bytes.resize(before + step);
    const ssize_t taken = ::read(output_, bytes.data() + before, step);
    bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(taken, 0)));
    closed_ = taken == 0;
    return taken > 0;
}

void PosixJobShell::collectEnded() {
    int status = 0;
    for (pid_t child = 0; (child = waitpid(-1, &status, WNOHANG)) > 0;) {
        if (child != shell_) continue;
        shell_ = 0;
        end_ = {WIFEXITED(status) ? WEXITSTATUS(status) : 0, WIFSIGNALED(status) ? WTERMSIG(status) : 0};
    }
}

void PosixJobShell::end() {
    constexpr int patience = 30;
    constexpr int step = 10;  // milliseconds
    signalAll(descendants(), SIGTERM);
    signalAll(descendants(), SIGCONT);  // one that was stopped would not notice
    for (int i = 0; i < patience && !descendants().empty(); ++i) {
        poll(nullptr, 0, step);
        collectEnded();
    }
    // What is started meanwhile by one that is about to die is found in the next round.
    constexpr int rounds = 200;
    for (int i = 0; i < rounds && !descendants().empty(); ++i) {
        signalAll(descendants(), SIGKILL);
        poll(nullptr, 0, step);
        collectEnded();
    }
}

void PosixJobShell::leave(const std::string& outputFile) {
    constexpr std::size_t step = 1U << 12U;
    if (closed_ || fork() != 0) return;
    setsid();
    fcntl(output_, F_SETFL, 0);
    const int file = open(outputFile.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    std::array<char, step> piece{};
    ssize_t taken = 0;
    while ((taken = ::read(output_, piece.data(), piece.size())) > 0 || (taken < 0 && errno == EINTR)) {
        for (const int to : {file, STDOUT_FILENO}) {
            [[maybe_unused]] const ssize_t written = write(to, piece.data(), static_cast<std::size_t>(taken));
        }
    }
    _exit(0);
}

}  // namespace

std::string endMark(const std::string& token) {
    return '\x1e' + token + ' ';
}

bool onlyPreparesShell(std::string_view line) {
    constexpr std::array<std::string_view, 13> words{"cd",    "pushd", "popd",    "export", "set",    "unset", "alias",
                                                     "umask", "trap",  "unalias", "ulimit", "source", "."};
    if (line.find_first_of(";&|<>`(){}") != std::string_view::npos) return false;
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    const std::string_view word = line.substr(0, line.find_first_of(" \t"));
    if (std::find(words.begin(), words.end(), word) != words.end()) return true;
    const bool assigns = word.find('=') != std::string_view::npos && word.find('=') != 0;
    return assigns && line.find_first_of(" \t") == std::string_view::npos;
}

std::string shellScript(const std::vector<ShellLine>& lines, const ShellFiles& files, const std::string& token) {
    std::string script = replaceAll(afterLine, "MARK", endMark(token)) + behindMistake;
    script.append("brasquelin_stop=").append(quotedForShell(files.stop));
    script.append("\nbrasquelin_stop_at_failure=").append(quotedForShell(files.stopAtFailure));
    script.append("\nbrasquelin_script=").append(quotedForShell(files.script)).append("\n");
    script = replaceAll(script, "HEADER", std::to_string(std::count(script.begin(), script.end(), '\n')));
    std::size_t step = 0;
    for (const auto& [number, line] : lines) {
        const std::string done = std::to_string(++step);
        // "command" keeps a syntax error in one line from ending the whole batch.
        script.append("command eval ").append(quotedForShell(line)).append("\n");
        if (number == 0) script.append("brasquelin_at=").append(done).append("\n");
        if (number != 0) script.append("brasquelin_ended " + std::to_string(number) + " $? ").append(done).append("\n");
    }
    script.append("brasquelin_exits=yes\n");
    return script;
}

std::unique_ptr<JobShell> startJobShell(const ShellFiles& files, const std::string& batchFile) {
    return std::make_unique<PosixJobShell>(files, batchFile);
}

}  // namespace brasquelin
