// Tables of at most 256 rows, and one such table per nesting level.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "text/runTimeError.h"

namespace brasquelin {

struct NamedValue {
    std::string name;
    std::string value;
};

/// Rows 0 to 255 with a count. Rows at and beyond the count keep what they last held. Copies share their rows until one
/// of them is changed.
template <typename Row>
class Table {
  public:
    static constexpr std::size_t rowLimit = 256;

    std::size_t count() const { return count_; }
    bool empty() const { return count_ == 0; }

    /// Sets the count to 0; the rows keep their contents.
    void resetCount() {
        if (count_ > 0) noteChange();
        count_ = 0;
    }

    /// Empties every row and sets the count to 0.
    void clear() {
        rows_.reset();
        count_ = 0;
        noteChange();
    }

    /// Adds a row behind the last one. Raises error 9 when all 256 are in use.
    Row& append(Row row) {
        Row& slot = nextRow();
        slot = std::move(row);
        takeNextRow();
        return slot;
    }

    /// The row at the count, to be filled in place before takeNextRow counts it. Raises error 9 when there is none.
    Row& nextRow() { return change(count_); }
    void takeNextRow() {
        ++count_;
        noteChange();
    }

    /// Takes the counted rows of another table over. The rows behind them keep what they held.
    void take(const Table& other) {
        if (revision_ == other.revision_) return;
        if (size() <= other.size()) {
            *this = other;
            return;
        }
        std::copy(other.begin(), other.end(), own().begin());
        count_ = other.count_;
        revision_ = other.revision_;
    }

    /// Any row from 0 to 255, counted or not. Raises error 9 outside of them.
    const Row& row(std::size_t index) const {
        if (index >= rowLimit) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
        static const Row unused{};
        return index < size() ? (*rows_)[index] : unused;
    }
    /// The same row, to be changed.
    Row& change(std::size_t index) {
        if (index >= rowLimit) throw RunTimeError(ErrorNumber::subscriptOutOfRange);
        auto& rows = own();
        if (rows.size() <= index) rows.resize(index + 1);
        noteChange();
        return rows[index];
    }

    /// The counted rows, for range-based loops.
    const Row* begin() const { return rows_ ? rows_->data() : nullptr; }
    const Row* end() const { return begin() + count_; }

    /// Another number whenever the table may have changed, and never one that another table has had: tables of one
    /// revision have the same counted rows.
    std::uint64_t revision() const { return revision_; }

  private:
    using Rows = std::vector<Row>;

    std::size_t size() const { return rows_ ? rows_->size() : 0; }

    /// The rows, shared with nobody.
    Rows& own() {
        if (!rows_) rows_ = std::make_shared<Rows>();
        if (rows_.use_count() > 1) rows_ = std::make_shared<Rows>(*rows_);
        return *rows_;
    }

    void noteChange() { revision_ = ++lastRevision; }

    static inline std::uint64_t lastRevision = 0;

    std::shared_ptr<Rows> rows_;
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
