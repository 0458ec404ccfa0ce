// Tables of at most 256 rows, and one such table per nesting level.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "text/runTimeError.h"

namespace brasquelin {

struct NamedValue {
    std::string name;
    std::string value;
};

/// Rows 0 to 255 with a count. Rows at and beyond the count keep what they last held.
template <typename Row>
class Table {
  public:
    static constexpr std::size_t rowLimit = 256;

    std::size_t count() const { return count_; }
    bool empty() const { return count_ == 0; }

    /// Sets the count to 0; the rows keep their contents.
    void resetCount() {
        count_ = 0;
        ++revision_;
    }

    /// Empties every row and sets the count to 0.
    void clear() {
        rows_.clear();
        resetCount();
    }

    /// Adds a row behind the last one. Raises error 9 when all 256 are in use.
    Row& append(Row row) {
        Row& slot = nextRow();
        slot = std::move(row);
        takeNextRow();
        return slot;
    }

    /// The row at the count, to be filled in place before takeNextRow counts it. Raises error 9 when there is none.
    Row& nextRow() {
        if (count_ >= rowLimit) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
        if (rows_.size() <= count_) rows_.resize(count_ + 1);
        ++revision_;
        return rows_[count_];
    }
    void takeNextRow() { ++count_; }

    /// Takes the rows and the count of another table over.
    void assign(Table other) {
        rows_ = std::move(other.rows_);
        count_ = other.count_;
        ++revision_;
    }

    /// Any row from 0 to 255, counted or not. Raises error 9 outside of them.
    const Row& row(std::size_t index) const {
        if (index >= rowLimit) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
        static const Row unused{};
        return index < rows_.size() ? rows_[index] : unused;
    }
    /// The same row, to be changed.
    Row& change(std::size_t index) {
        if (index >= rowLimit) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
        if (rows_.size() <= index) rows_.resize(index + 1);
        ++revision_;
        return rows_[index];
    }

    /// The counted rows, for range-based loops.
    const Row* begin() const { return rows_.data(); }
    const Row* end() const { return rows_.data() + count_; }

    /// Grows whenever the table may have changed.
    std::uint64_t revision() const { return revision_; }

  private:
    std::vector<Row> rows_;
    std::size_t count_ = 0;
    std::uint64_t revision_ = 0;
};

/// One entry per nesting level, 0 to 100. Another level is error 9.
template <typename Entry>
class PerLevel {
  public:
    static constexpr int deepestLevel = 100;

    Entry& operator[](int level) {
        check(level);
        return entries_[static_cast<std::size_t>(level)];
    }
    const Entry& operator[](int level) const {
        check(level);
        return entries_[static_cast<std::size_t>(level)];
    }

  private:
    static void check(int level) {
        if (level < 0 || level > deepestLevel) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
    }
    std::array<Entry, deepestLevel + 1> entries_;
};

}  // namespace brasquelin
