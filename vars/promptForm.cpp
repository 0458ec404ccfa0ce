#include "vars/promptForm.h"

#include <utility>

#include "platform/desktop.h"
#include "platform/onlooker.h"
#include "platform/paths.h"
#include "platform/reporting.h"
#include "text/text.h"
#include "text/visibleText.h"
#include "vars/rememberedValues.h"

namespace brasquelin {

namespace {

constexpr std::string_view askMarker = "#ask#";
constexpr std::string_view popMarker = "#pop#";
constexpr std::string_view popKeyMarker = "#pop:";

Box below(const Box& box, int gap, int heightAbove) {
    return {box.left, box.top + heightAbove + gap, box.width, box.height};
}
Box below(const Box& box, int gap) {
    return below(box, gap, box.height);
}

void putDefault(PromptRow& row, const std::string& defaultValue) {
    row.selected = -1;
    row.text.clear();
    row.askUser = false;
    row.backdropVisible = true;
    if (defaultValue.empty()) return;
    if (row.showsChoices()) {
        row.select(defaultValue);
    } else {
        row.text = defaultValue;
    }
}

void fillRow(PromptRow& row, const std::string& defaultValue) {
    if (row.showsPath()) {
        row.dialogFilter = dialogFilterOf(row.typeSpec);
        row.dialogMode = dialogSaves(row.typeSpec) ? "save" : "open";
        row.doubledBackslashes = row.kind == VariableKind::dbls;
    }
    if (row.kind == VariableKind::list) fillListChoices(choiceText(row.typeSpec), row.choices);
    if (row.kind == VariableKind::comb) fillCombChoices(choiceText(row.typeSpec), row.choices, row.values);
    putDefault(row, defaultValue);
}

/// The text of a path as the dialog's choice puts it into a row.
std::string shortChoice(const std::string& chosen, bool saves) {
    if (!saves) return shortPath(chosen);
    return joinPath(shortPath(dirOf(chosen)), fileNameOf(chosen));
}

/// Where the file dialog of a row starts. Back-slashes that all come in pairs stand for single ones.
std::string startOf(const PromptRow& row) {
    if (!row.doubledBackslashes) return row.text;
    const std::string single = replaceAll(row.text, "\\\\", "\\");
    return replaceAll(single, "\\", "\\\\") == row.text ? single : row.text;
}

/// A cancelled input box ends the program; without a display that is a failure. True when the row was answered.
bool askForRow(PromptRow& row, const std::string& about) {
    if (row.showsPath()) return browse(row, about);
    if (!row.showsText()) return false;
    const auto answer = desktop().askText(visibleText(row.label) + "\r\n\r\n" + about, "Brasquelin", row.text);
    if (!answer) throw EndProgram(desktop().hasWindows() ? 0 : 1);
    row.text = *answer;
    return true;
}

bool takesRemembered(const PromptRow& row, PromptKind kind) {
    if (row.kind == VariableKind::dbls) return kind == PromptKind::function;
    return row.showsText() || row.kind == VariableKind::path;
}

/// An answer that cannot be remembered is good for this run all the same.
void remember(std::string_view key, const std::string& answer) {
    reporting({}, [&] { rememberValue(key, answer); });
}

/// `key` is empty when the answer is not to be remembered. True when the row took a value.
bool popRow(PromptRow& row, const PromptForm& form, std::string_view key) {
    if (!key.empty() && takesRemembered(row, form.kind)) {
        if (auto remembered = recallValue(key)) {
            row.text = std::move(*remembered);
            return true;
        }
    }
    if (!askForRow(row, form.about(row))) return false;
    if (!key.empty()) remember(key, row.text);
    return true;
}

/// True when the row took the value.
bool takeValue(PromptRow& row, PromptKind kind, const std::string& value) {
    if (row.showsChoices()) {
        row.select(value.empty() ? "0" : value);
    } else if (row.kind != VariableKind::dbls) {
        row.text = value;
    } else if (kind == PromptKind::profile) {
        row.text = replaceAll(value, "\\", "\\\\");
    } else {
        return false;
    }
    return true;
}

void applyPreset(PromptRow& row, const PromptForm& form, const std::string& value) {
    const bool marked = value.starts_with('#');
    if (marked && equalIgnoringCase(value, askMarker)) {
        row.askUser = true;
        return;
    }
    bool taken = false;
    if (marked && startsWithIgnoringCase(value, popKeyMarker)) {
        taken = popRow(row, form, fromCharacter(value, popKeyMarker.size() + 1));
    } else if (marked && equalIgnoringCase(value, popMarker)) {
        taken = popRow(row, form, {});
    } else {
        taken = takeValue(row, form.kind, value);
    }
    if (taken) row.backdropVisible = false;
}

}  // namespace

RowPlacement RowPlacement::next() const {
    RowPlacement placed;
    placed.varName = below(varName, 125);
    placed.textType = below(textType, 100);
    placed.pathType = below(pathType, 100);
    placed.getPath = below(getPath, 100, pathType.height);
    placed.listType = below(listType, 65);
    placed.graph1 = below(graph1, 7);
    placed.graph2 = below(graph2, 7);
    return placed;
}

const std::string& PromptRow::value() const {
    static const std::string nothing;
    if (!showsChoices()) return text;
    if (selected < 0) return nothing;
    const auto position = static_cast<std::size_t>(selected);
    return kind == VariableKind::comb ? values[position] : choices[position];
}

void PromptRow::select(std::string_view number) {
    const int position = toInteger16(number);
    if (position < 0 || static_cast<std::size_t>(position) >= choices.size()) {
        throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    }
    selected = position;
}

std::string_view PromptForm::windowName() const {
    return kind == PromptKind::profile ? "frmVarProfile" : "frmVarFunction";
}

std::string PromptForm::about(const PromptRow& row) const {
    const std::string_view file = kind == PromptKind::profile ? "profile" : "library";
    const std::string variable =
        visibleText("Variable '" + row.name + "' of the " + std::string(file) + " '" + title + "'");
    return row.info.empty() ? variable : variable + "\r\n" + visibleText(row.info);
}

std::vector<PromptRow> buildRows(const Table<VariableDeclaration>& declarations, std::string_view path) {
    std::vector<PromptRow> rows;
    rows.reserve(declarations.count());
    for (const auto& declaration : declarations) {
        PromptRow row;
        row.name = declaration.name;
        row.label = declaration.name + "=";
        row.info = declaration.info;
        row.typeSpec = declaration.typeSpec;
        row.kind = kindOf(declaration.typeSpec);
        if (!rows.empty()) row.place = rows.back().place.next();
        attempt(path, declaration.line, [&] { fillRow(row, declaration.defaultValue); });
        rows.push_back(std::move(row));
    }
    return rows;
}

void resetRows(PromptForm& form) {
    for (std::size_t i = 0; i < form.rows.size(); ++i) {
        const auto& declaration = form.declarations.row(i);
        attempt(form.path, declaration.line, [&] { putDefault(form.rows[i], declaration.defaultValue); });
    }
}

void placeButtons(PromptForm& form) {
    constexpr int gap = 5;
    const Box backdrop = form.rows.empty() ? RowPlacement().graph1 : form.rows.back().place.graph1;
    form.cmdOK.top = form.cmdCancel.top = backdrop.bottom() + gap;
}

void applyPresets(PromptForm& form, const std::vector<std::string>& presets) {
    for (std::size_t i = 0; i < presets.size() && i < form.rows.size(); ++i) {
        attempt(form.path, form.declarations.row(i).line, [&] { applyPreset(form.rows[i], form, presets[i]); });
    }
}

bool browse(PromptRow& row, std::string note) {
    const bool saves = row.dialogMode != "open";
    FileDialogRequest request;
    request.mode = saves ? FileDialogMode::save : FileDialogMode::open;
    request.title = saves ? "Save file" : "Open file";
    request.filter = row.dialogFilter;
    request.startName = startOf(row);
    request.note = std::move(note);
    const std::string chosen = desktop().askFile(request);
    if (chosen.empty()) return false;
    row.text = shortChoice(chosen, saves);
    if (row.doubledBackslashes) row.text = replaceAll(row.text, "\\", "\\\\");
    return true;
}

}  // namespace brasquelin
