// Run-time errors and the end of the program, as exceptions.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace brasquelin {

/// The numbers that a message shows as "Error n : description".
enum class ErrorNumber {
    invalidCall = 5,
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    userInterrupt = 18,
    fileNotFound = 53,
    deviceError = 57,
    diskFull = 61,
    inputPastEnd = 62,
    permissionDenied = 70,
    pathFileAccess = 75,
    pathNotFound = 76,
};

/// The fixed English text of an error, such as "File not found".
std::string_view description(ErrorNumber number);

/// A failure that is reported to the user by whoever handles the current step.
class RunTimeError : public std::runtime_error {
  public:
    /// `path` is the file that the error is about; empty when only the handler knows it.
    /// `line` counts from 1; 0 when there is none.
    explicit RunTimeError(ErrorNumber number, std::string path = {}, int line = 0);

    /// The same error of writing its file.
    RunTimeError ofWriting() const;
    /// The same error with its cause in words, which every report ends with as a line of its own.
    RunTimeError because(std::string cause) const;
    /// The same error; about this file unless it names one.
    RunTimeError about(const std::string& path) const;
    /// The same error at this place, unless it names a file.
    RunTimeError at(std::string_view path, int line) const;
    /// The same error about this file, whatever it names.
    RunTimeError whollyAbout(const std::string& path) const;

    ErrorNumber number() const { return number_; }
    const std::string& path() const { return path_; }
    int line() const { return line_; }
    bool isOfWriting() const { return ofWriting_; }

    /// "Error 53 : File not found", the context (CR LF and a line, or nothing), the cause.
    std::string report(std::string_view context = {}) const;

    /// The report with the context CR LF + "While loading '" (or "While writting '") + path + "'" (and " at line n"
    /// where there is one). `handlerPath` and `handlerLine` tell what the handler was working on. An error that names
    /// a file of its own keeps it, and what the handler was working on follows as "From file '...' at line n". Without
    /// any file there is no context.
    std::string reportWhileLoading(std::string_view handlerPath, int handlerLine = 0) const;

  private:
    ErrorNumber number_;
    std::string path_;
    int line_;
    bool ofWriting_ = false;
    std::string cause_;
};

/// The exception in hand as a run-time error: itself, 7 where memory ran out, 5 with its own words for any other of the
/// library. To be called where it was caught; whatever else was thrown goes on.
RunTimeError currentRunTimeError();

/// Thrown where the program is to end; caught once, around the event loop or the unattended run.
class EndProgram {
  public:
    explicit EndProgram(int exitStatus) : exitStatus_(exitStatus) {}
    /// 0, or 1 when a critical message led to the end.
    int exitStatus() const { return exitStatus_; }

  private:
    int exitStatus_;
};

}  // namespace brasquelin
