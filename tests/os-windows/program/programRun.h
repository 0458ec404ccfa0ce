// The real program in a directory of its own whose name holds blanks.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "support/scratchDirectory.h"

namespace brasquelin {

class ProgramRun {
  public:
    ProgramRun();
    ~ProgramRun();
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;

    /// The program directory and its short form.
    const std::filesystem::path& directory() const { return directory_; }
    const std::string& shortDirectory() const { return shortDirectory_; }
    std::string operator/(std::string_view name) const { return utf8(directory_) + "\\" + std::string(name); }

    /// Writes a file of the program directory, each line ended by CR LF, in the ANSI code page.
    std::string write(std::string_view name, std::string_view lines) const;
    /// A profile with a text variable "x" and this body.
    std::string writeProfile(std::string_view name, std::string_view library, std::string_view body) const;
    /// The test helper under another name.
    void copyHelper(std::wstring_view name) const;
    /// The bytes of a file of the program directory.
    std::string bytes(std::string_view name) const;

    /// Starts the program with a raw command line behind its own path.
    void start(std::string_view commandLine);
    /// Starts and waits for the end. False when it did not end; what its windows say is a test failure then.
    bool run(std::string_view commandLine);
    bool waitForEnd(unsigned seconds = 30);
    DWORD exitCode() const;
    /// The visible top-level window with this title, once it has come up; a test failure when it does not.
    HWND awaitWindow(std::wstring_view title) const;

  private:
    void closeProcess();

    ScratchDirectory scratch_;
    std::filesystem::path directory_;
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
