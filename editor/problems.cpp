#include "editor/problems.h"

#include "check/checkFile.h"
#include "text/substitution.h"

namespace brasquelin {

namespace {

std::string shownText(const Finding& finding, bool ofDocument) {
    std::string text = std::string(nameOf(finding.severity)) + ": ";
    if (!ofDocument) text += fileNameOf(finding.path) + " line " + std::to_string(finding.line) + ": ";
    return text + finding.text;
}

}  // namespace

std::vector<Problem> findProblems(const ProfileDocument& document) {
    const std::string path = documentPath(document);
    std::vector<Problem> problems;
    Checker checker;
    DocumentLayout layout(document);
    checker.checkText(path, layout.takeLines());
    for (const auto& finding : checker.findings()) {
        const bool ofDocument = finding.path == path;
        Problem problem{finding.severity, shownText(finding, ofDocument), {}};
        if (ofDocument) problem.place = layout.placeOf(static_cast<std::size_t>(finding.line));
        problems.push_back(std::move(problem));
    }
    return problems;
}

std::optional<Severity> severityOfLine(const std::vector<Problem>& problems, EditorList list, std::size_t line) {
    std::optional<Severity> worst;
    for (const auto& problem : problems) {
        if (problem.place.list != list || problem.place.line != line) continue;
        if (!worst || problem.severity < *worst) worst = problem.severity;
    }
    return worst;
}

}  // namespace brasquelin
