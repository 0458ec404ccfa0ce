#include "platform/jobShell.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/windows/inheritedHandles.h"
#include "platform/windows/jobObject.h"
#include "platform/windows/programStart.h"
#include "platform/windows/systemError.h"
#include "platform/windows/systemHandle.h"
#include "platform/windows/wideText.h"
#include "text/runTimeError.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

/// The files are named by way of a variable, for the script is in a code page that may not hold their path.
constexpr wchar_t directoryVariable[] = L"BRASQUELIN_RUN";

std::string quotedForBatch(std::string_view path) {
    return "\"%BRASQUELIN_RUN%\\" + std::string(fileNameOf(path)) + '"';
}

/// The next line belongs to this one: an odd number of carets ends it.
bool goesOn(std::string_view line) {
    const auto last = line.find_last_not_of('^');
    const std::size_t carets = line.size() - (last == std::string_view::npos ? 0 : last + 1);
    return carets % 2 == 1;
}

class WindowsJobShell : public JobShell {
  public:
    explicit WindowsJobShell(const ShellFiles& files);
    ~WindowsJobShell() override { end(); }
    WindowsJobShell(const WindowsJobShell&) = delete;
    WindowsJobShell& operator=(const WindowsJobShell&) = delete;

    bool read(std::string& bytes, std::uint32_t milliseconds) override;
    void end() override;
    ProcessEnd ended() const override { return end_; }
    void leave(const std::string& outputFile) override;

  private:
    bool take(std::string& bytes);

    SystemHandle job_;
    SystemHandle output_;
    SystemHandle shell_;
    ProcessEnd end_;
};

WindowsJobShell::WindowsJobShell(const ShellFiles& files) : job_(newJobObject()) {
    PipeEnds output = makePipe(PipeUse::weRead, files.script);
    output_ = std::move(output.ours);
    const HANDLE writing = output.theirs.get();
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const SystemHandle nothing = ownHandle(
        CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable, OPEN_EXISTING, 0, nullptr));
    InheritedHandles handles({writing, nothing.get()});
    STARTUPINFOEXW info{};
    info.StartupInfo.cb = sizeof info;
    info.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    info.StartupInfo.hStdInput = nothing.get();
    info.StartupInfo.hStdOutput = writing;
    info.StartupInfo.hStdError = writing;
    info.lpAttributeList = handles.list();
    SetEnvironmentVariableW(directoryVariable, toWide(dirOf(files.script)).c_str());
    ProgramStart program = programStartOf('"' + files.script + '"');
    PROCESS_INFORMATION process{};
    constexpr DWORD flags = CREATE_SUSPENDED | CREATE_NO_WINDOW | EXTENDED_STARTUPINFO_PRESENT;
    if (CreateProcessW(program.program.c_str(), program.commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr,
                       nullptr, &info.StartupInfo, &process) == 0) {
        throw RunTimeError(startErrorOf(GetLastError()), fromWide(program.program));
    }
    shell_ = beginInJob(process, job_.get());
}

bool WindowsJobShell::read(std::string& bytes, std::uint32_t milliseconds) {
    constexpr std::uint32_t step = 10;
    for (std::uint32_t waited = 0;; waited += step) {
        const bool ended = WaitForSingleObject(shell_.get(), 0) != WAIT_TIMEOUT;  // before the last bytes are taken
        if (take(bytes)) return true;
        if (ended) {
            DWORD code = 0;
            GetExitCodeProcess(shell_.get(), &code);
            end_.exitCode = static_cast<int>(code);
            return false;
        }
        if (waited >= milliseconds) return true;
        WaitForSingleObject(shell_.get(), step);
    }
}

bool WindowsJobShell::take(std::string& bytes) {
    DWORD waiting = 0;
    if (PeekNamedPipe(output_.get(), nullptr, 0, nullptr, &waiting, nullptr) == 0 || waiting == 0) return false;
    const std::size_t before = bytes.size();
    bytes.resize(before + waiting);
    DWORD taken = 0;
    ReadFile(output_.get(), bytes.data() + before, waiting, &taken, nullptr);
    bytes.resize(before + taken);
    return taken > 0;
}

void WindowsJobShell::end() {
    if (job_) TerminateJobObject(job_.get(), 1);
    WaitForSingleObject(shell_.get(), 2000);
}

void WindowsJobShell::leave(const std::string& /*outputFile*/) {
    letJobGoOn(job_.get());
    job_.reset();
}

}  // namespace

std::string endMark(const std::string& token) {
    return '\x1e' + token + ' ';
}

bool onlyPreparesShell(std::string_view line) {
    constexpr std::array<std::string_view, 11> words{"cd",   "chdir",  "pushd",    "popd",     "set",  "path",
                                                     "chcp", "prompt", "setlocal", "endlocal", "@echo"};
    if (line.find_first_of("&|<>()") != std::string_view::npos) return false;
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    const std::string word = lowerCase(line.substr(0, line.find_first_of(" \t/\\.")));
    const bool drive = line.size() == 2 && line[1] == ':';
    return drive || std::find(words.begin(), words.end(), word) != words.end();
}

std::string shellScript(const std::vector<ShellLine>& lines, const ShellFiles& files, const std::string& token) {
    const std::string journal = "@>>" + quotedForBatch(files.journal) + " echo ";
    const std::string stop = "@if exist " + quotedForBatch(files.stop);
    const std::string stopAtFailure = "@if not \"%errorlevel%\"==\"0\" if exist " + quotedForBatch(files.stopAtFailure);
    std::string script = "@echo off\r\n";
    bool begun = false;
    for (const auto& [number, line] : lines) {
        // Many commands leave the code alone with which the line before has failed.
        if (!begun && !findIgnoringCase(line, "errorlevel")) script.append("@(call )\r\n");
        script.append(line).append("\r\n");
        begun = goesOn(line);
        if (number == 0 || begun) continue;
        const std::string end = std::to_string(number) + " %errorlevel%";
        const std::string mark = "echo " + endMark(token) + end;
        script.append(journal).append(end).append("\r\n");  // outlives whoever reads the output
        for (const auto& condition : {stop, stopAtFailure}) {
            script.append(condition).append(" (").append(mark).append(" last& exit)\r\n");
        }
        script.append("@").append(mark).append("\r\n");
    }
    return script;
}

std::unique_ptr<JobShell> startJobShell(const ShellFiles& files, const std::string& /*batchFile*/) {
    return std::make_unique<WindowsJobShell>(files);
}

}  // namespace brasquelin
