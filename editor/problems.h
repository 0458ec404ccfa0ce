// What is wrong in the document, for the list below it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "check/findings.h"
#include "editor/profileDocument.h"

namespace brasquelin {

struct Problem {
    Severity severity = Severity::error;
    std::string text;     // as the list shows it
    DocumentPlace place;  // in no list for what concerns the whole, and for other files
};

/// Checks the document as it stands, unsaved lines included. Nothing is run.
std::vector<Problem> findProblems(const ProfileDocument& document);

/// The worst of the problems of a line; nothing for a line without any.
std::optional<Severity> severityOfLine(const std::vector<Problem>& problems, EditorList list, std::size_t line);

}  // namespace brasquelin
