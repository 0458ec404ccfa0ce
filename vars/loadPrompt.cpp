#include "vars/loadPrompt.h"

#include <algorithm>
#include <memory>
#include <utility>

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

/// The title must have at least two characters.
void requireTitle(const std::string& path, FileKind kind) {
    const auto file = readTextFile(path);
    const std::size_t least = headerLength(kind) + 2;
    if (!file->lines.empty() && characterCount(file->lines.front()) >= least) return;
    endWithMessage("Error while loading '" + path + "' line 1", {"bad-header", {path, 1}}, errorTitle);
}

/// The title with its blanks turned into "_".
std::string titleInFirstLine(const std::string& path, FileKind kind) {
    requireTitle(path, kind);
    std::string title(titleIn(readTextFile(path)->lines.front(), kind));
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

/// The form that was confirmed unseen last. While a list is replayed it serves for the next line that opens its file.
/// One whose faults were taken by whoever looks on serves for nobody else.
std::shared_ptr<PromptForm>& unseenForm() {
    static std::shared_ptr<PromptForm> form;
    return form;
}

/// The declarations of one revision come from one version of one file.
bool servesAgain(PromptKind kind, const std::string& path, const Table<VariableDeclaration>& declarations) {
    const auto& form = unseenForm();
    return form && form->kind == kind && form->path == path && form->declarations.revision() == declarations.revision();
}

std::shared_ptr<PromptForm> newForm(PromptKind kind, const std::string& path,
                                    const Table<VariableDeclaration>& declarations) {
    auto form = std::make_shared<PromptForm>();
    form->kind = kind;
    form->path = path;
    attempt(path, 1,
            [&] { form->title = kind == PromptKind::profile ? readProfileTitle(path) : readFunctionTitle(path); });
    form->declarations = declarations;
    form->rows = buildRows(declarations, path);
    placeButtons(*form);
    return form;
}

/// Makes the form from the declarations and applies the presets.
std::shared_ptr<PromptForm> makeForm(PromptKind kind, const std::string& path,
                                     const Table<VariableDeclaration>& declarations, PromptOptions& options) {
    try {
        const bool again = servesAgain(kind, path, declarations);
        auto form = again ? std::exchange(unseenForm(), nullptr) : newForm(kind, path, declarations);
        if (again) resetRows(*form);
        form->endsProgram = options.namedOnCommandLine;
        form->mayConfirm = std::move(options.mayConfirm);
        form->confirmed = std::move(options.confirmed);
        applyPresets(*form, options.presets);
        return form;
    } catch (const RunTimeError& error) {
        throw error.about(path);
    }
}

/// Shows the form, or confirms it unseen.
void prompt(const std::shared_ptr<PromptForm>& form, const PromptOptions& options) {
    const bool nothingToAsk = options.replaying && form->rows.empty();
    if (nothingToAsk || !needsUser(*form, options.presets)) {
        confirmPrompt(*form);
        if (options.replaying && !onlooker()) unseenForm() = form;
    } else {
        show(form, !options.namedOnCommandLine);
    }
}

}  // namespace

void forgetUnseenForm() {
    unseenForm().reset();
}

std::string readProfileTitle(const std::string& path) {
    return titleInFirstLine(path, FileKind::profile);
}

std::string readFunctionTitle(const std::string& path) {
    return titleInFirstLine(path, FileKind::library);
}

void loadProfile(const std::string& path, PromptOptions options) {
    requireFile(path);
    attempt(path, 1, [&] { requireTitle(path, FileKind::profile); });
    variableTables.pluginResults[0].resetCount();
    readProfileVariables(path, 1);
    const auto& declarations = variableTables.profileVariables[1];
    if (declarations.empty()) {
        variableTables.values[1].resetCount();
        options.runAtOnce();
        return;
    }
    prompt(makeForm(PromptKind::profile, path, declarations, options), options);
}

void loadFunction(const std::string& path, PromptOptions options) {
    requireFile(path);
    attempt(path, 1, [&] { requireTitle(path, FileKind::library); });
    readFunctionVariables(path);
    const auto& declarations = variableTables.functionVariables;
    prompt(makeForm(PromptKind::function, path, declarations, options), options);
}

bool refusesConfirmation(const PromptForm& form) {
    if (onlooker() && !onlooker()->mayConfirm()) return true;
    return form.mayConfirm && !form.mayConfirm();
}

bool confirmPrompt(PromptForm& form) {
    if (refusesConfirmation(form)) return false;
    auto& entries = form.entries;
    entries.resize(form.rows.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const PromptRow& row = form.rows[i];
        rejectUnknownType(form, row);
        entries[i].assign(row.label).append(row.value());
    }
    if (form.kind == PromptKind::profile) {
        variableTables.profileVariables[1].take(form.declarations);
        auto& values = variableTables.values[1];
        values.resetCount();
        for (const auto& entry : entries) {
            values.nextRow() = entry;
            values.takeNextRow();
        }
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
