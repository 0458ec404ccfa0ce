// The dialog that appends a call, without its window.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "editor/newLines.h"

namespace brasquelin {

class AddCommand {
  public:
    AddCommand();

    const std::vector<CallableEntry>& entries() const { return entries_; }
    const std::vector<std::string>& references() const { return references_; }

    /// True for a call that was in the document before.
    bool edits() const { return !replaced_.empty(); }
    /// The entry that is chosen first; nothing when there is none.
    std::optional<std::size_t> firstChoice() const;
    /// Why there is nothing to be added; empty when there is.
    std::string note() const;

    /// Asks for the values of the call and appends it to the document, or puts it in place of the one that it was
    /// before: its values are those to start from then, and Cancel leaves them. Raises the error of opening an include.
    void configure(std::size_t index) const;

  private:
    using Lines = std::vector<std::string>;

    Lines callLines(const CallableEntry& entry) const;
    Lines changedLines(const CallableEntry& entry) const;

    std::vector<CallableEntry> entries_;
    Lines references_;
    Lines replaced_;  // the call that is edited
};

}  // namespace brasquelin
