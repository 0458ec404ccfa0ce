// The prompt as a model: one row per variable with what is visible, chosen and typed. All sizes are twips.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

struct Box {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int bottom() const { return top + height; }
};

/// Where the controls of one row stand.
struct RowPlacement {
    Box varName{120, 70, 2055, 255};
    Box textType{2400, 30, 3015, 285};
    Box listType{2400, 30, 3015, 315};
    Box pathType{2400, 30, 2535, 285};
    Box getPath{4920, 30, 495, 285};
    Box graph1{0, 0, 2295, 375};
    Box graph2{2300, 0, 3240, 375};

    /// The row below this one.
    RowPlacement next() const;
};

struct PromptRow {
    std::string name;
    std::string label;  // what `varName` shows: name + "="
    std::string info;   // its tooltip
    std::string typeSpec;
    VariableKind kind = VariableKind::unknown;

    std::string text;                  // `textType` or `pathType`
    std::vector<std::string> choices;  // `listType`: an empty entry, then the items or labels
    std::vector<std::string> values;   // `combType`: parallel to the choices of a comb
    int selected = -1;                 // position in `choices`, -1 when nothing is selected

    std::string dialogFilter;
    std::string dialogMode;  // "open" or "save"
    bool doubledBackslashes = false;

    bool askUser = false;         // "#ask#": the name in bold and dark red
    bool backdropVisible = true;  // false once a command-line value has set the row
    RowPlacement place;

    bool showsText() const { return kind == VariableKind::text; }
    bool showsPath() const { return kind == VariableKind::path || kind == VariableKind::dbls; }
    bool showsChoices() const { return isChoice(kind); }

    /// What OK stores for the row.
    const std::string& value() const;
    /// Selects an entry by its number. Raises 13 for what is no number, 9 for one out of range.
    void select(std::string_view number);
};

enum class PromptKind { profile, function };

/// A prompt owns what it was built from: other files may be read while it is up.
struct PromptForm {
    PromptKind kind = PromptKind::profile;
    std::string path;
    std::string title;  // the window's caption
    Table<VariableDeclaration> declarations;
    std::vector<PromptRow> rows;
    std::vector<std::string> entries;  // what OK has stored, as name=value
    Box cmdCancel{0, 0, 2295, 375};
    Box cmdOK{2300, 0, 3240, 375};
    bool endsProgram = false;  // closing the window ends the program
    /// Asked before OK does anything; false, after a message, while it cannot be.
    std::function<bool()> mayConfirm;
    /// What OK starts with the values, as name=value.
    std::function<void(const std::vector<std::string>& values)> confirmed;

    /// "frmVarProfile" or "frmVarFunction"
    std::string_view windowName() const;
    /// For boxes that ask for one row alone: which variable of which file, and what its declaration tells, as it can be
    /// shown.
    std::string about(const PromptRow& row) const;
};

/// One row per declaration of the file, defaults filled in, placed below each other. Raises 13 or 9 for a bad default
/// of a choice.
std::vector<PromptRow> buildRows(const Table<VariableDeclaration>& declarations, std::string_view path = {});

/// The rows as they were built: without what the command line or the user has put in.
void resetRows(PromptForm& form);

/// Places the buttons below the rows.
void placeButtons(PromptForm& form);

/// Gives the rows the values of the command line, one each in order; values beyond the last row are ignored. Asks for
/// "#pop" values. Raises 13 or 9 for a bad number of a choice, EndProgram for a cancelled input box.
void applyPresets(PromptForm& form, const std::vector<std::string>& presets);

/// Opens the row's file dialog at its present value and takes the choice, if any. The dialog shows the note. True when
/// the row changed.
bool browse(PromptRow& row, std::string note = {});

}  // namespace brasquelin
