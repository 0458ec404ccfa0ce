// The dialog that appends a call, without its window.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "editor/newLines.h"

namespace brasquelin {

class AddCommand {
  public:
    AddCommand();

    const std::vector<CallableEntry>& entries() const { return entries_; }
    const std::vector<std::string>& references() const { return references_; }

    /// Asks for the values of the call and appends it to the document. Raises the error of opening an include.
    void configure(std::size_t index) const;

  private:
    std::vector<std::string> callLines(const CallableEntry& entry) const;

    std::vector<CallableEntry> entries_;
    std::vector<std::string> references_;
};

}  // namespace brasquelin
