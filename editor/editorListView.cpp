#include "editor/editorListView.h"

#include "editor/editorState.h"
#include "editor/groupActions.h"
#include "editor/problemList.h"
#include "platform/wx/colours.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

std::string hintOf(EditorList which) {
    if (which == EditorList::include) return "Double-click to add a library, a profile or a plugin";
    if (which == EditorList::variables) return "Double-click to declare what the profile asks for";
    return "Double-click to add what the profile does";
}

}  // namespace

EditorListView::EditorListView(wxWindow* parent, EditorList which, const char* name)
    : LineList(parent, name, wxBORDER_NONE, wxDefaultSize, Selection::several), which_(which) {
    attributeLook_.SetTextColour(dimmedText(*this));
    setHint(hintOf(which));
    SetMinSize(FromDIP(wxSize(200, 60)));
}

const std::vector<std::string>& EditorListView::lines() const {
    return editorState.document.list(which_);
}

void EditorListView::showChanges() {
    const auto shown = static_cast<std::size_t>(GetItemCount());
    findLongest();
    showLines();
    if (lineCount() <= shown) return;
    EnsureVisible(GetItemCount() - 1);
    selectLine(shown);
}

void EditorListView::showFromStart() {
    selectLine({});
    findLongest();
    showLines();
    if (lineCount() > 0) EnsureVisible(0);
}

void EditorListView::findLongest() {
    longest_.reset();
    std::size_t most = 0;
    for (std::size_t i = 0; i < lines().size(); ++i) {
        const std::size_t characters = characterCount(shownLine(lines()[i]));
        if (longest_ && characters <= most) continue;
        longest_ = i;
        most = characters;
    }
}

std::size_t EditorListView::lineCount() const {
    return lines().size();
}

std::string_view EditorListView::line(std::size_t index) const {
    return lines()[index];
}

bool EditorListView::isAttribute(long item) const {
    const auto index = static_cast<std::size_t>(item);
    return which_ != EditorList::include && index < lineCount() && brasquelin::isAttribute(line(index));
}

/// Attribute lines are indented and dim, so that the groups stand out.
wxString EditorListView::wholeText(std::size_t index) const {
    const wxString text = LineList::wholeText(index);
    return isAttribute(static_cast<long>(index)) ? "    " + text : text;
}

void EditorListView::copySelected() {
    brasquelin::copySelected(which_, selectedLines());
}

std::optional<Severity> EditorListView::severityOf(long item) const {
    return severityOfLine(editorState.problems, which_, static_cast<std::size_t>(item));
}

/// A line with a problem stands on a ground of the problem's colour.
wxItemAttr* EditorListView::OnGetItemAttr(long item) const {
    const auto severity = severityOf(item);
    if (!severity) return isAttribute(item) ? &attributeLook_ : nullptr;
    problemLook_.SetTextColour(colourOf(*severity, *this));
    problemLook_.SetBackgroundColour(groundOf(*severity, *this));
    return &problemLook_;
}

}  // namespace brasquelin
