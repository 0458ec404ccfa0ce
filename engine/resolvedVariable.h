// What a variable stands for once it has a value.
#pragma once

#include <string>
#include <string_view>

#include "text/substitution.h"
#include "vars/typeSpec.h"
#include "vars/variableTables.h"

namespace brasquelin {

struct ResolvedVariable {
    std::string name;       // as declared
    bool isChoice = false;  // a list or comb
    ResolvedChoice choice;
    std::string label;  // what "text($name$)" becomes
};

/// Resolves variables one after the other. A label belongs to all that follow: only the match of a comb item sets it.
class VariableResolver {
  public:
    /// Into a place that may have held another one. Raises what resolveChoice raises.
    void resolve(const VariableDeclaration& variable, std::string_view value, ResolvedVariable& resolved);

  private:
    std::string label_;
};

/// Replaces "index($name$)" and "text($name$)", in exact letter case.
void expandForms(ReferenceText& text, const ResolvedVariable& variable);

}  // namespace brasquelin
