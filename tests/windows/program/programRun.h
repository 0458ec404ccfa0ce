// The real program in a directory of its own.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "support/scratchDirectory.h"

namespace brasquelin {

/// The directory is the program directory.
class ProgramRun : public ScratchDirectory {
  public:
    ProgramRun();
    ~ProgramRun();

    /// The short form of the program directory.
    const std::string& shortDirectory() const { return shortDirectory_; }

    /// Writes a file, each line ended by CR LF, in the ANSI code page.
    std::string writeLines(std::string_view name, std::string_view lines) const;
    /// A profile with a text variable "x" and this body.
    std::string writeProfile(std::string_view name, std::string_view library, std::string_view body) const;
    /// The test helper under another name.
    void copyHelper(std::wstring_view name) const;

    /// Starts the program with a raw command line behind its own path.
    void start(std::string_view commandLine);
    /// Starts and waits for the end. False when it did not end; what its windows say is a test failure then.
    bool run(std::string_view commandLine);
    bool waitForEnd(unsigned seconds = 30);
    DWORD exitCode() const;
    void endByForce() { closeProcess(); }
    /// The visible top-level window with this title, once it has come up; a test failure when it does not.
    HWND awaitWindow(std::wstring_view title) const;

  private:
    void closeProcess();

    std::string shortDirectory_;
    PROCESS_INFORMATION process_{};
};

/// False when the window has no such button.
bool clickButton(HWND window, std::wstring_view label);

/// The title and the texts of the controls of a window.
std::string textsOf(HWND window);

/// The default value of a key under HKEY_CLASSES_ROOT.
std::string classValue(const std::wstring& key);

}  // namespace brasquelin
