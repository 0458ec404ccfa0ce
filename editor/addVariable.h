// The dialog that declares a variable, without its window.
#pragma once

#include <string>
#include <vector>

#include "editor/newLines.h"

namespace brasquelin {

class AddVariable {
  public:
    AddVariable();

    VariableFields fields;
    const std::vector<std::string>& references() const { return references_; }

    /// Asks for an entry of the list; whatever is answered is added.
    void askListChoice();
    /// Asks for an entry of the comb: its label and, unless that is one of the references, its command. A lone
    /// reference is added, and told to be nothing that a profile accepts.
    void askCombEntry();

    /// Appends the declaration to the document.
    void add() const;

  private:
    bool isReference(const std::string& label) const;

    std::vector<std::string> references_;
};

}  // namespace brasquelin
