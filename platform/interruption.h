// Being told to end, for a program that has something to end first.
#pragma once

namespace brasquelin {

/// From now on TERM, INT and HUP are noted and do not end the program (Linux); one that was ignored stays ignored.
/// Writing to whoever has gone does not end it either. Windows: nothing, for a program with windows gets no such event.
void noteInterruption();
bool wasInterrupted();

}  // namespace brasquelin
