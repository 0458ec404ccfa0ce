// What became of a list of lines, as one change that can be made and taken back.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace brasquelin {

/// From `position` on, these lines were there before and those after it.
struct LineChange {
    std::size_t position = 0;
    std::vector<std::string> removed;
    std::vector<std::string> inserted;

    bool empty() const { return removed.empty() && inserted.empty(); }
    /// The memory that it takes, about.
    std::size_t bytes() const;

    /// Makes the change in lines that hold what is removed at its position; lines behind it may have come since.
    void applyTo(std::vector<std::string>& lines) const;
    /// The opposite, in lines that hold what was inserted.
    void takeBackFrom(std::vector<std::string>& lines) const;

    bool operator==(const LineChange&) const = default;
};

/// The change that leads from one list to the other: all between their common beginning and their common end.
LineChange changeBetween(const std::vector<std::string>& before, const std::vector<std::string>& after);

/// Leaves out what is the same at the beginning and at the end.
void trim(LineChange& change);

}  // namespace brasquelin
