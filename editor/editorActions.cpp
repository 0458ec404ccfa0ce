#include "editor/editorActions.h"

#include <algorithm>

#include "config/configFile.h"
#include "editor/keptProfiles.h"
#include "editor/newLines.h"
#include "editor/pluginQuery.h"
#include "editor/recentProfiles.h"
#include "editor/references.h"
#include "editor/valueInput.h"
#include "engine/plugins.h"
#include "platform/childProcess.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "text/fileFormat.h"
#include "text/runTimeError.h"
#include "text/text.h"
#include "text/visibleText.h"

namespace brasquelin {

namespace {

constexpr std::string_view editLabel = "Edit this value :";

const std::vector<std::string>& activeLines() {
    return editorState.document.list(editorState.activeList);
}

void change(const EditedDocument::Change& step) {
    editorState.edited.change(step);
}

void append(EditorList which, const std::vector<std::string>& lines) {
    change([&](ProfileDocument& document) { document.append(which, lines); });
}

void replaceLine(EditorList which, std::size_t line, const std::string& text) {
    change([&](ProfileDocument& document) { document.replaceLine(which, line, text); });
}

bool isLineOf(const std::vector<std::string>& lines, SelectedLine selected) {
    return selected && *selected < lines.size();
}

void saveTo(const std::string& path) {
    reporting(path, [&] {
        saveDocument(editorState.document, path);
        settings.profilePath = path;
        editorState.edited.markSaved();
        keepUnsaved();
        noteRecentProfile(path);
        tellStatus("Saved '" + path + "'.");
    });
}

std::vector<FileLine> linesToBeLost() {
    std::vector<FileLine> lost;
    try {
        if (canSave() && !editorState.document.foreign) lost = linesLostBySaving(settings.profilePath);
    } catch (const RunTimeError&) {
        lost.clear();  // a file that cannot be read any more
    }
    return lost;
}

std::string listOf(const std::vector<FileLine>& lines) {
    constexpr std::size_t most = 20;
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), most); ++i) {
        text += "line " + std::to_string(lines[i].number) + ": " + visibleText(lines[i].text) + "\r\n";
    }
    if (lines.size() > most) text += "and " + std::to_string(lines.size() - most) + " more\r\n";
    return text;
}

/// True unless the user would rather keep what saving drops.
bool mayDropLines() {
    const auto lost = linesToBeLost();
    return lost.empty() ||
           desktop().askYesNo("Saving drops these lines, which stand in no section of a profile:\r\n\r\n" +
                                  listOf(lost) + "\r\nSave all the same ?",
                              "Brasquelin");
}

void tellForeign(const std::string& path) {
    desktop().showMessage("'" + path +
                              "' is no profile: its first line is another one.\r\n"
                              "Save asks for a file, so that it is not replaced by accident.",
                          "Brasquelin", Icon::exclamation);
}

void addProgram(const std::string& chosen, const std::string& path) {
    const auto answer =
        desktop().askText("Enter parameters for launching plugin (Empty=NoParameters)", "Parameters", {});
    const bool isCheck = desktop().askYesNo("Is it a check plugin ?", "Brasquelin");
    reporting({}, [&] {
        const LibraryWord word = isCheck ? LibraryWord::check : LibraryWord::plugin;
        change([&](ProfileDocument& document) {
            document.pluginNames.append(pluginNameOf(chosen));
            document.append(EditorList::include, {writeLibraryLine({word, path, answer.value_or("")})});
        });
        if (!isCheck) editorState.newPlugins.push_back(editorState.document.listInclude.back());
    });
}

/// Where a file dialog starts; empty: wherever the desktop likes.
std::string startIn(const std::string& directory) {
    return directory.empty() ? std::string() : joinPath(directory, {});
}

std::string includeLine(const std::string& chosen) {
    return writeLibraryLine({LibraryWord::include, includePath(chosen, settings.profilePath), {}});
}

void addInclude() {
    const std::string chosen =
        desktop().askFile({FileDialogMode::open, "Include a library , profile or plugin in project",
                           "BQ File|*.bqs;*.bqp;*.exe", startIn(settings.libraryPath)});
    if (chosen.empty()) return;
    const std::string path = includePath(chosen, settings.profilePath);
    if (kindOfFile(chosen) == FileKind::program) return addProgram(chosen, path);
    append(EditorList::include, {includeLine(chosen)});
}

}  // namespace

void enterEditor() {
    editorState.keptFile.clear();
    editorState.newPlugins.clear();
    editorState.status.clear();
    editorState.activeList = EditorList::none;
    editorState.edited.replace(newDocument);
}

void stopWaiting() {
    cancelChild();
}

void leaveEditor() {
    tryToKeep();
    leaveKept();
    desktop().unloadWindow(ProgramWindow::addVar);
    desktop().unloadWindow(ProgramWindow::addCommand);
    desktop().showWindow(ProgramWindow::main, false);
}

std::string editorTitle() {
    constexpr std::string_view window = "Profile Editor";
    const std::string mark = editorState.edited.isSaved() ? "" : "*";
    if (!canSave()) return mark + std::string(window);
    return mark + fileNameOf(settings.profilePath) + " - " + std::string(window);
}

void startNewProfile() {
    tryToKeep();
    leaveKept();
    editorState.newPlugins.clear();
    editorState.edited.replace(newDocument);
}

void restoreProfile(const std::string& file, const std::function<void()>& opened) {
    if (!restoreKept(file)) return;
    opened();
    queryPlugins();
}

void openProfile(const std::function<void()>& opened) {
    const std::string start = startIn(canSave() ? dirOf(settings.profilePath) : settings.profileDirectory);
    const std::string path =
        desktop().askFile({FileDialogMode::open, "Open a Brasquelin profile", "BQP Files|*.bqp", start});
    if (!path.empty()) openProfileAt(path, opened);
}

void openProfileAt(const std::string& path, const std::function<void()>& opened) {
    tryToKeep();
    const auto read = [&](ProfileDocument& document) { openDocument(document, path); };
    if (!reporting(path, [&] { editorState.edited.replace(read); })) return;
    leaveKept();
    noteRecentProfile(path);
    opened();
    if (editorState.document.foreign) tellForeign(path);
    queryPlugins();
}

void takeDropped(const std::vector<std::string>& paths, const std::function<void()>& opened) {
    for (const auto& path : paths) {
        const FileKind kind = kindOfFile(path);
        if (kind == FileKind::profile) return openProfileAt(path, opened);
        if (kind == FileKind::library) append(EditorList::include, {includeLine(path)});
    }
}

bool canSave() {
    return !settings.profilePath.empty();
}

void saveProfile() {
    if (!canSave()) return;
    if (editorState.document.foreign) return saveProfileAs();
    if (mayDropLines()) saveTo(settings.profilePath);
}

std::string lossNote() {
    const auto lost = linesToBeLost().size();
    if (lost == 0) return {};
    const std::string what =
        lost == 1 ? "A line of this file stands" : std::to_string(lost) + " lines of this file stand";
    return what + " in no section of a profile. Saving will drop " + (lost == 1 ? "it." : "them.");
}

void showLoss() {
    const auto lost = linesToBeLost();
    if (lost.empty()) return;
    desktop().showMessage("In '" + settings.profilePath + "', in no section:\r\n\r\n" + listOf(lost), "Brasquelin",
                          Icon::information);
}

void saveProfileAs() {
    const std::string proposal = proposedFileName(editorState.document);
    const std::string path =
        desktop().askFile({FileDialogMode::save, "Save profile as", "Profile Files|*.bqp", proposal});
    if (!path.empty()) saveTo(path);
}

DocumentPlace undoChange() {
    return editorState.edited.undo();
}

DocumentPlace redoChange() {
    return editorState.edited.redo();
}

void addLines() {
    if (editorState.activeList == EditorList::include) return addInclude();
    if (editorState.activeList == EditorList::variables) return desktop().showWindow(ProgramWindow::addVar, true);
    if (editorState.activeList == EditorList::commands) return desktop().showWindow(ProgramWindow::addCommand, true);
}

void editLine(SelectedLine selected) {
    if (editorState.activeList == EditorList::none || !isLineOf(activeLines(), selected)) return;
    const auto answer = desktop().askEdit(editLabel, "Edit", activeLines()[*selected]);
    if (!answer || answer->empty()) return;
    replaceLine(editorState.activeList, *selected, *answer);
}

void clearActiveList() {
    if (editorState.activeList == EditorList::none) return;
    change([](ProfileDocument& document) { clearList(document, editorState.activeList); });
}

void appendNext() {
    append(EditorList::commands, {std::string(nextWord)});
}

void editCommandLine(SelectedLine selected) {
    const auto& lines = editorState.document.listCommand;
    if (!isLineOf(lines, selected)) return;
    editorState.lstVar = commandReferences(editorState.document);
    const std::string answer = showValueInput(editLabel, lines[*selected], editorState.lstVar);
    if (answer != canceledAnswer) replaceLine(EditorList::commands, *selected, answer);
}

}  // namespace brasquelin
