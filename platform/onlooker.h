// Whoever looks on while files are read and run: the checker and the dry run. Without one a run does all that it says.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "text/runTimeError.h"

namespace brasquelin {

/// A line of a file, counted from 1; 0 where it is not known.
struct SourceLine {
    std::string path;
    int line = 0;
};

/// What a message is about that ends the program: a short name of the fault, and where it stands.
struct Fault {
    std::string_view code;
    SourceLine place;
};

/// A text that is about to be expanded: the end of a line, or the whole line.
struct Expansion {
    std::string_view path;  // where it stands
    int line = 0;
    std::string_view text;
    bool ofFunction = false;                                // of its command or write text
    std::function<std::string(const std::string&)> expand;  // any other text in its place

    SourceLine place() const { return {std::string(path), line}; }
};

/// The numbers of a loop that starts.
struct LoopNumbers {
    int start = 0;
    int end = 0;
    int step = 0;
};

class Onlooker {
  public:
    virtual ~Onlooker() = default;

    /// A run-time error, and what was worked on. True when it was taken: nobody is told, and the step that raised it is
    /// left out.
    virtual bool takes(const RunTimeError& /*error*/, const SourceLine& /*place*/) { return false; }
    /// The same for a message behind which the program would end.
    virtual bool takes(std::string_view /*message*/, const Fault& /*fault*/) { return false; }
    /// True when the run goes on behind a step that such a message has ended.
    virtual bool goesOn() { return false; }

    /// False keeps a plugin or check from being run: it answers nothing then.
    virtual bool mayRunProgram(std::string_view /*path*/) { return true; }
    /// False keeps the run from writing files: what functions save, and the remembered answers.
    virtual bool mayWrite() { return true; }
    // What is met on the way

    /// A line that says nothing, though it may be meant to.
    virtual void ignores(const SourceLine& /*place*/) {}
    virtual void expands(const Expansion& /*expansion*/) {}
    /// A call gives a variable of the called file its value.
    virtual void gives(std::string_view /*variable*/, const SourceLine& /*place*/, int /*callLine*/) {}
    virtual void startsLoop(const LoopNumbers& /*numbers*/, const SourceLine& /*place*/) {}
    /// A loop that is open where its file ends.
    virtual void leavesOpen(const SourceLine& /*loop*/) {}
    /// An include has its name: the last callable of the level.
    virtual void registers(int /*level*/, const SourceLine& /*place*/) {}
    /// Another file takes part: an include, or a function that is called.
    virtual void follows(const std::string& /*path*/) {}
    /// False when a prompt must not be confirmed.
    virtual bool mayConfirm() { return true; }
    /// False ends a loop before its time.
    virtual bool mayTurn() { return true; }
    /// False leaves out the call of a profile.
    virtual bool mayCall() { return true; }
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

/// Does a step that can be left out, for an onlooker that collects what is wrong. Without one a fault goes on upwards.
template <typename Step>
void attempt(std::string_view path, int line, Step step) {
    if (!onlooker()) return step();
    try {
        step();
    } catch (const RunTimeError& error) {
        if (!onlooker()->takes(error, {std::string(path), line})) throw;
    } catch (const EndProgram&) {
        if (!onlooker()->goesOn()) throw;
    }
}

/// Notes a line that is passed over, unless it is empty or begins like a comment.
inline void noteIgnored(std::string_view path, int line, std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (!onlooker() || first == std::string_view::npos || text[first] == '#') return;
    onlooker()->ignores({std::string(path), line});
}

}  // namespace brasquelin
