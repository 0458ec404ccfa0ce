#include "vars/loadPrompt.h"

#include <algorithm>

#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/onlooker.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/fileFormat.h"
#include "text/text.h"
#include "vars/declarations.h"

namespace brasquelin {

namespace {

void requireFile(const std::string& path) {
    if (textFileExists(path)) return;
    endWithMessage("'" + path + "'\r\nError: unknown file", {"unknown-file", {path, 0}});
}

/// The title with its blanks turned into "_". It must have at least two characters.
std::string titleInFirstLine(const std::string& path, FileKind kind) {
    const auto file = readTextFile(path);
    const std::string_view line = file->lines.empty() ? std::string_view() : std::string_view(file->lines.front());
    if (characterCount(line) < headerLength(kind) + 2) {
        endWithMessage("Error while loading '" + path + "' line 1", {"bad-header", {path, 1}}, errorTitle);
    }
    std::string title(titleIn(line, kind));
    std::replace(title.begin(), title.end(), ' ', '_');
    return title;
}

bool needsUser(const PromptForm& form, const std::vector<std::string>& presets) {
    if (presets.empty()) return true;
    return std::any_of(form.rows.begin(), form.rows.end(), [](const PromptRow& row) { return row.askUser; });
}

void show(const std::shared_ptr<PromptForm>& form, bool modal) {
    if (desktop().hasWindows()) return desktop().showPrompt(form, modal);
    const std::string text = "The values of '" + form->path + "' cannot be asked for without a display.";
    desktop().showMessage(text, errorTitle, Icon::exclamation);
    desktop().noteFailure(text);
}

void rejectUnknownType(const PromptForm& form, const PromptRow& row) {
    if (row.kind != VariableKind::unknown) return;
    const std::string about = "' : unknown var type '" + row.typeSpec + "' for var '" + row.name + "'";
    endWithMessage("Error in file '" + form.path + about, {"bad-type", {form.path, 0}});
}

/// Builds the form from the declarations and applies the presets.
std::shared_ptr<PromptForm> buildForm(PromptKind kind, const std::string& path, std::string title,
                                      const Table<VariableDeclaration>& declarations, PromptOptions& options) {
    auto form = std::make_shared<PromptForm>();
    form->kind = kind;
    form->path = path;
    form->title = std::move(title);
    form->declarations = declarations;
    form->endsProgram = options.namedOnCommandLine;
    form->mayConfirm = std::move(options.mayConfirm);
    form->confirmed = std::move(options.confirmed);
    try {
        form->rows = buildRows(declarations, path);
        placeButtons(*form);
        applyPresets(*form, options.presets);
    } catch (const RunTimeError& error) {
        throw error.about(path);
    }
    return form;
}

/// Shows the form, or confirms it unseen.
void prompt(const std::shared_ptr<PromptForm>& form, const PromptOptions& options) {
    const bool nothingToAsk = options.replaying && form->rows.empty();
    if (nothingToAsk || !needsUser(*form, options.presets)) {
        confirmPrompt(*form);
    } else {
        show(form, !options.namedOnCommandLine);
    }
}

}  // namespace

std::string readProfileTitle(const std::string& path) {
    return titleInFirstLine(path, FileKind::profile);
}

std::string readFunctionTitle(const std::string& path) {
    return titleInFirstLine(path, FileKind::library);
}

void loadProfile(const std::string& path, PromptOptions options) {
    requireFile(path);
    std::string title;
    attempt(path, 1, [&] { title = readProfileTitle(path); });
    variableTables.pluginResults[0].resetCount();
    readProfileVariables(path, 1);
    const auto& declarations = variableTables.profileVariables[1];
    if (declarations.empty()) {
        variableTables.values[1].resetCount();
        options.runAtOnce();
        return;
    }
    prompt(buildForm(PromptKind::profile, path, std::move(title), declarations, options), options);
}

void loadFunction(const std::string& path, PromptOptions options) {
    requireFile(path);
    std::string title;
    attempt(path, 1, [&] { title = readFunctionTitle(path); });
    readFunctionVariables(path);
    const auto& declarations = variableTables.functionVariables;
    prompt(buildForm(PromptKind::function, path, std::move(title), declarations, options), options);
}

bool refusesConfirmation(const PromptForm& form) {
    if (onlooker() && !onlooker()->mayConfirm()) return true;
    return form.mayConfirm && !form.mayConfirm();
}

bool confirmPrompt(PromptForm& form) {
    if (refusesConfirmation(form)) return false;
    std::vector<std::string> entries;
    entries.reserve(form.rows.size());
    for (const auto& row : form.rows) {
        rejectUnknownType(form, row);
        entries.push_back(row.label + row.value());
    }
    if (form.kind == PromptKind::profile) {
        variableTables.profileVariables[1].take(form.declarations);
        auto& values = variableTables.values[1];
        values.resetCount();
        for (const auto& entry : entries) values.append(entry);
    } else {
        variableTables.functionVariables.take(form.declarations);
    }
    const auto confirmed = std::move(form.confirmed);
    if (confirmed) confirmed(entries);
    return true;
}

void promptClosed(const PromptForm& form) {
    if (form.endsProgram) throw EndProgram(0);
}

}  // namespace brasquelin
