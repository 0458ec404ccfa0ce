// The commands of the job list with 100,000 jobs.
#pragma once

class wxFrame;

namespace brasquelin {

/// Prints what each command takes in the main window until the window is up to date, for one job, for a block of half
/// of them and for all.
void timeJobCommands(wxFrame& frame);

}  // namespace brasquelin
