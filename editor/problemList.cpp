#include "editor/problemList.h"

#include <algorithm>
#include <array>

#include "editor/editorState.h"
#include "platform/wx/colours.h"

namespace brasquelin {

wxColour colourOf(Severity severity, const wxWindow& window) {
    struct Colours {
        wxColour onLight;
        wxColour onDark;
    };
    static const std::array<Colours, 3> colours{{{wxColour(176, 0, 0), wxColour(255, 130, 120)},
                                                 {wxColour(150, 85, 0), wxColour(255, 190, 90)},
                                                 {wxColour(0, 85, 150), wxColour(130, 190, 255)}}};
    const auto& colour = colours.at(static_cast<std::size_t>(severity));
    return isDark(window.GetBackgroundColour()) ? colour.onDark : colour.onLight;
}

wxColour groundOf(Severity severity, const wxWindow& window) {
    constexpr double share = 0.12;
    return mixed(window.GetBackgroundColour(), colourOf(severity, window), share);
}

ProblemList::ProblemList(wxWindow* parent) : LineList(parent, "listProblems", wxBORDER_NONE) {
    SetMinSize(FromDIP(wxSize(200, 60)));
}

void ProblemList::showProblems() {
    selectLine({});
    showLines();
}

std::size_t ProblemList::lineCount() const {
    return editorState.problems.size();
}

std::string_view ProblemList::line(std::size_t index) const {
    return editorState.problems[index].text;
}

std::optional<std::size_t> ProblemList::longestLine() const {
    const auto& problems = editorState.problems;
    if (problems.empty()) return std::nullopt;
    const auto longest = std::max_element(
        problems.begin(), problems.end(),
        [](const Problem& left, const Problem& right) { return left.text.size() < right.text.size(); });
    return static_cast<std::size_t>(longest - problems.begin());
}

wxItemAttr* ProblemList::OnGetItemAttr(long item) const {
    const auto index = static_cast<std::size_t>(item);
    if (index >= lineCount()) return nullptr;
    look_.SetTextColour(colourOf(editorState.problems[index].severity, *this));
    return &look_;
}

}  // namespace brasquelin
