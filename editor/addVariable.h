// The dialog that declares a variable, without its window.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "editor/newLines.h"

namespace brasquelin {

class AddVariable {
  public:
    AddVariable();

    VariableFields fields;
    const std::vector<std::string>& references() const { return references_; }

    /// True when the fields are those of a declaration that was in the document before.
    bool edits() const { return !replaced_.empty(); }

    /// Whether the type makes use of them.
    bool usesList() const { return fields.type == "List"; }
    bool usesComb() const { return fields.type == "Comb"; }
    bool usesFilter() const { return fields.type != "Text" && !usesList() && !usesComb(); }

    /// Asks for an entry of the list; whatever is answered is added. The first one makes the type a list.
    void askListChoice();
    /// Asks for an entry of the comb: its label and, unless that is one of the references, its command. A lone
    /// reference is added, and told to be nothing that a profile accepts. The first one makes the type a comb.
    void askCombEntry();
    /// Ask for one of the entries again; Cancel leaves it.
    void editListChoice(std::size_t index);
    void editCombEntry(std::size_t index);

    /// What is odd about the fields, though they may be added; empty for nothing.
    std::string note() const;

    /// Appends the declaration to the document, or puts it in place of the one that it was before.
    void add() const;

  private:
    bool isReference(const std::string& label) const;
    bool isDeclaredElsewhere() const;
    void preferType(const char* type, const std::string& added, std::size_t entries);

    std::vector<std::string> references_;
    std::vector<std::string> replaced_;      // the lines of the declaration that is edited
    std::vector<std::string> furtherLines_;  // of it, which no field shows
};

}  // namespace brasquelin
