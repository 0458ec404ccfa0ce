// What the user can do in the profile editor, without its window: each action works on `editorState`.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editor/editorState.h"

namespace brasquelin {

using SelectedLine = std::optional<std::size_t>;

/// Loading the editor's window: remembers the configured profile directory and starts a new document.
void enterEditor();
/// The user is tired of waiting for a plugin: ends it.
void stopWaiting();
/// Closing the window: unloads its dialogs and shows the main window again.
void leaveEditor();

/// The file's name and the program part; only the latter while there is no file. "*" in front while something is not
/// saved.
std::string editorTitle();

// The menu "Profile". A file that cannot be read or written is reported; the document is as it was then.
void startNewProfile();
/// What was kept of another document becomes the document, and its plugins are run.
void restoreProfile(const std::string& file, const std::function<void()>& opened);
/// `opened` is called when the document is another one, before its plugins are run.
void openProfile(const std::function<void()>& opened);
void openProfileAt(const std::string& path, const std::function<void()>& opened);
/// Files that were dropped on the window: libraries in front of the first profile are included, that profile is opened.
void takeDropped(const std::vector<std::string>& paths, const std::function<void()>& opened);
bool canSave();  // there is a current file
/// A file that was no profile is not replaced without a question: that is saved as by saveProfileAs.
void saveProfile();
void saveProfileAs();
/// That the current file holds lines which saving will drop (then it asks); empty when it holds none.
std::string lossNote();
/// Lists them in a message.
void showLoss();

// The menu "Edit". Both give the first line that has changed, in no list where only the name has.
DocumentPlace undoChange();
DocumentPlace redoChange();

// The context menu. Each works on `activeList`.
/// Asks for what is to be added and appends it.
void addLines();
/// Include and variable list: asks for a new text of the selected line; an empty answer keeps it.
void editLine(SelectedLine selected);
void clearActiveList();

// The command list.
void appendNext();
/// Asks for a new text of the selected command line with the references at hand.
void editCommandLine(SelectedLine selected);

}  // namespace brasquelin
