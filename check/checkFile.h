// The checker: everything that is wrong in a file, at once and with its place, without running it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "check/findings.h"

namespace brasquelin {

class FileCheck;

/// Checks profiles, libraries, basic functions and their list file, a configuration, and list files (any other name).
/// They are read and interpreted as for a run, every step on its own, so that one fault does not hide the next; what
/// only a user or a plugin could tell is taken as unknown. Includes and functions that are called are followed, each
/// file once. Nothing is run, written, asked or erased. The tables of the program are as before when it goes.
class Checker {
  public:
    /// Reads the configuration of the program, whose faults count, too.
    Checker();
    ~Checker();
    Checker(const Checker&) = delete;
    Checker& operator=(const Checker&) = delete;

    /// Raises the error of reading this file; one of a file that it leads to is a finding.
    void check(const std::string& path);

    /// Checks lines that a file would hold, without what it includes.
    void checkText(const std::string& path, std::vector<std::string> lines);

    /// File by file in the order in which they were reached, each by lines.
    std::vector<Finding> findings() const;

  private:
    std::unique_ptr<FileCheck> check_;
};

}  // namespace brasquelin
