// Whoever looks on while files are read and run: the checker and the dry run. Without one a run does all that it says.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// A line of a file, counted from 1; 0 where it is not known.
struct SourceLine {
    std::string path;
    int line = 0;
};

class Onlooker {
  public:
    virtual ~Onlooker() = default;

    /// False keeps a plugin or check from being run: it answers nothing then. May raise what its start would raise.
    virtual bool mayRunProgram(std::string_view /*path*/) { return true; }
    /// False keeps the run from writing a file: what functions save, and the remembered answers. May raise what the
    /// writing would raise.
    virtual bool mayWrite(std::string_view /*path*/) { return true; }
    /// False when a prompt must not be confirmed.
    virtual bool mayConfirm() { return true; }
    /// True for the text of a number that only a program that was not run, or a user, could tell.
    virtual bool isUnknown(std::string_view /*number*/, const SourceLine& /*place*/) { return false; }
};

/// A null pointer when nobody looks on.
Onlooker* onlooker();

/// Takes the place of whoever looked on for as long as it lives.
class LookingOn {
  public:
    explicit LookingOn(Onlooker& newOnlooker);
    ~LookingOn();
    LookingOn(const LookingOn&) = delete;
    LookingOn& operator=(const LookingOn&) = delete;

  private:
    Onlooker* before_;
};

}  // namespace brasquelin
