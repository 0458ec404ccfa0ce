// What was not saved of the documents in the editor, kept in files of the program directory until it is saved, restored
// or discarded.
#pragma once

#include <optional>
#include <string>

#include "editor/profileDocument.h"
#include "platform/files.h"

namespace brasquelin {

struct KeptProfile {
    ProfileDocument document;
    std::string path;  // of its file; empty while it had none
};

/// Raises the error of writing.
void writeKept(const std::string& file, const KeptProfile& kept);
/// Raises the error of opening, and 57 for a file that holds no kept profile.
KeptProfile readKept(const std::string& file);

// The document in the editor

/// Writes it to the file that keeps it; when it is saved, that file goes. Raises the error of writing.
void keepUnsaved();
/// The same; false for a failure, which was reported.
bool tryToKeep();
/// The document is gone from the editor: what is kept of it is offered from now on.
void leaveKept();

// What earlier documents have left

struct KeptOffer {
    std::string file;
    std::string text;      // what the user is told
    FileStamp stamp = {};  // of the file that it tells of
};
/// The newest of them.
std::optional<KeptOffer> keptOffer();
/// It becomes the document, not saved yet. False for a file that cannot be read, which was reported; everything is as
/// it was then.
bool restoreKept(const std::string& file);
void discardKept(const std::string& file);

}  // namespace brasquelin
