// The toolkit's application: its event loop, and what becomes of exceptions that are thrown in it.
#pragma once

#include <functional>

namespace brasquelin {

/// Starts the toolkit, calls `start` as the first thing in the event loop and runs the loop until EndProgram is thrown
/// anywhere in it. The windows are unloaded then. Gives the exit status.
///
/// A run-time error or another standard exception that reaches a window's event becomes a message; the program goes
/// on. EndProgram passes through every nested modal loop.
int runApplication(std::function<void()> start);

/// Throws what an event threw while a nested loop was running. To be called behind every modal show.
void rethrowFromEvents();

}  // namespace brasquelin
