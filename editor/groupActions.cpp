#include "editor/groupActions.h"

#include <algorithm>
#include <optional>

#include "editor/editorState.h"
#include "engine/plugins.h"
#include "platform/desktop.h"
#include "platform/reporting.h"
#include "text/fileFormat.h"

namespace brasquelin {

namespace {

using Lines = std::vector<std::string>;

const Lines& linesOf(EditorList which) {
    return editorState.document.list(which);
}

template <typename Change>
void change(EditorList which, Change change) {
    editorState.edited.change([&](ProfileDocument& document) { change(document.list(which)); });
}

/// Where several groups were: the line that has come to their place.
LineNumbers selectionAfter(EditorList which, const LineNumbers& removed) {
    const Lines& lines = linesOf(which);
    if (removed.empty() || lines.empty()) return {};
    return {std::min(removed.front(), lines.size() - 1)};
}

std::optional<std::size_t> lastOf(const LineNumbers& selected) {
    return selected.empty() ? std::nullopt : std::optional(selected.back());
}

/// The line of which the group moves.
std::optional<std::size_t> movingLine(EditorList which, const LineNumbers& selected) {
    if (selected.empty() && which == EditorList::commands) return 0;
    return lastOf(selected);
}

using Move = std::optional<std::size_t> (*)(Lines& lines, EditorList which, std::optional<std::size_t> selected);

LineNumbers moveSelected(Move move, EditorList which, const LineNumbers& selected) {
    std::optional<std::size_t> line = lastOf(selected);
    reporting({}, [&] { change(which, [&](Lines& lines) { line = move(lines, which, line); }); });
    return line ? LineNumbers{*line} : LineNumbers();
}

/// They can be called, as those that a dialog adds.
void noteNewPlugins(ProfileDocument& document, const Lines& added) {
    auto& names = document.pluginNames;
    for (const auto& line : added) {
        const auto parsed = parseLibraryLine(line);
        if (!parsed || parsed->word == LibraryWord::include) continue;
        const std::string name = pluginNameOf(parsed->path);
        if (std::find(names.begin(), names.end(), name) == names.end()) names.append(name);
        if (parsed->word == LibraryWord::plugin) editorState.newPlugins.push_back(line);
    }
}

}  // namespace

LineNumbers removeSelected(EditorList which, const LineNumbers& selected) {
    change(which, [&](Lines& lines) { eraseGroups(lines, which, selected); });
    return selectionAfter(which, selected);
}

std::string selectedText(EditorList which, const LineNumbers& selected) {
    return textOf(linesOf(which), wholeGroups(linesOf(which), which, selected));
}

void copySelected(EditorList which, const LineNumbers& selected) {
    if (!selected.empty()) desktop().copyToClipboard(selectedText(which, selected));
}

LineNumbers cutSelected(EditorList which, const LineNumbers& selected) {
    copySelected(which, selected);
    const LineNumbers groups = wholeGroups(linesOf(which), which, selected);
    change(which, [&](Lines& lines) { eraseLines(lines, groups); });
    return selectionAfter(which, groups);
}

LineNumbers pasteBehind(EditorList which, const LineNumbers& selected) {
    return insertText(which, placeBehind(linesOf(which), which, selected), desktop().clipboardText());
}

LineNumbers insertText(EditorList which, std::size_t before, const std::string& text) {
    LineNumbers inserted;
    reporting({}, [&] {
        editorState.edited.change([&](ProfileDocument& document) {
            Lines& lines = document.list(which);
            const Lines added = linesOfText(text);
            if (which == EditorList::include) noteNewPlugins(document, added);
            inserted = insertLines(lines, placeBetween(lines, which, before), added);
        });
    });
    return inserted;
}

LineNumbers moveSelectedTo(EditorList which, const LineNumbers& selected, std::size_t before) {
    LineNumbers moved = wholeGroups(linesOf(which), which, selected);
    change(which, [&](Lines& lines) { moved = moveLines(lines, moved, placeBetween(lines, which, before)); });
    return moved;
}

LineNumbers moveSelectedUp(EditorList which, const LineNumbers& selected) {
    return moveSelected(moveGroupUp, which, selected);
}

LineNumbers moveSelectedDown(EditorList which, const LineNumbers& selected) {
    return moveSelected(moveGroupDown, which, selected);
}

bool canMoveUp(EditorList which, const LineNumbers& selected) {
    const auto line = movingLine(which, selected);
    return line && hasGroupAbove(linesOf(which), which, *line);
}

bool canMoveDown(EditorList which, const LineNumbers& selected) {
    const auto line = movingLine(which, selected);
    return line && hasGroupBelow(linesOf(which), which, *line);
}

}  // namespace brasquelin
