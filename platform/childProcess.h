// Child processes: started by a command text, waited for while the windows stay alive, ended on the way out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brasquelin {

/// How a process shows itself. `ownWindow` is a normal window where the system gives programs a console of their own; a
/// desktop that does not (Linux) shows what runs in this program's run window.
enum class WindowStyle { hidden = 0, normalWithFocus = 1, ownWindow = 2 };

/// How a process ended: by itself with a code, or by a signal (Linux only).
struct ProcessEnd {
    int exitCode = 0;
    int signal = 0;
};

/// Starting, asking and ending; the system's own unless a test puts another one in its place. Each started process
/// is remembered with the system's handle to it, so a process id that was reused is never taken for it.
class ProcessTable {
  public:
    virtual ~ProcessTable() = default;
    /// Starts a command and gives its process id. An empty command is error 5, a program that is missing error 53, one
    /// that may not be run error 70.
    virtual std::uint32_t start(std::string_view command, WindowStyle style) = 0;
    /// The same for a process that the program waits for: it ends with the program, also when the system or the user
    /// ends that (TERM, INT and HUP; a console that is closed).
    virtual std::uint32_t startToWaitFor(std::string_view command, WindowStyle style) { return start(command, style); }
    /// False when the process has ended or was not started here.
    virtual bool isRunning(std::uint32_t processId) = 0;
    /// True when the process was ended by this call.
    virtual bool terminate(std::uint32_t processId) = 0;
    /// How the process ended that was found ended last; zeros for any other, and for one that `terminate` ended.
    virtual ProcessEnd endOf(std::uint32_t /*processId*/) { return {}; }
    /// The process that owns a window; 0 where windows have no such handle.
    virtual std::uint32_t ownerOf(std::uintptr_t /*windowHandle*/) { return 0; }
};

ProcessTable& processTable();
/// A null pointer brings the system's table back.
void setProcessTable(ProcessTable* table);
/// The system's own table.
ProcessTable& systemProcessTable();

/// The process that shellAndWait last started; 0 until then, never reset.
extern std::uint32_t childProcessId;

/// Starts a command and returns its process id at once.
std::uint32_t startCommand(std::string_view command, WindowStyle style);

/// Starts a command and returns when it has ended, 1,000 ms later at the earliest. Pending events of the user interface
/// are processed meanwhile; what is kept of text files is forgotten. When it runs for longer than half a second, the
/// user is told that `what` is running and may end it.
void shellAndWait(std::string_view command, WindowStyle style, std::string_view what);

/// The user ends the process that shellAndWait last started.
void cancelChild();
/// True when that has happened.
bool childCancelled();

/// The halves of shellAndWait.
std::uint32_t startToWaitFor(std::string_view command, WindowStyle style);
void awaitEnd(std::uint32_t processId, std::string_view what);

/// Ends a process. `windowHandle`, unless 0, names the process by a window that it owns (Windows only).
bool killProcess(std::uint32_t processId, std::uintptr_t windowHandle = 0);

/// Waits while pending events of the user interface are processed.
void waitMilliseconds(std::uint32_t milliseconds);

}  // namespace brasquelin
