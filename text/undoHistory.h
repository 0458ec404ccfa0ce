// The steps of an editor, to be taken back and made again.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <utility>

namespace brasquelin {

/// Keeps the steps; whoever edits makes them and takes them back. The oldest steps go when all of them take more memory
/// than is allowed, but the newest always stays.
template <typename Step>
class UndoHistory {
  public:
    static constexpr std::size_t mostBytes = 64U << 20U;
    explicit UndoHistory(std::size_t most = mostBytes) : most_(most) {}

    /// A step that was just made and takes about so many bytes. What was undone cannot be made again afterwards.
    void add(Step step, std::size_t bytes) {
        dropUndone();
        steps_.push_back({std::move(step), bytes});
        bytes_ += bytes;
        ++done_;
        while (bytes_ > most_ && steps_.size() > 1) dropOldest();
    }

    /// The newest step where it may still grow, such as by further typing: it is neither undone nor what was saved.
    /// Null otherwise. Whoever changes it tells its size by `resizeGrowing`.
    Step* growing() { return done_ == 0 || done_ < steps_.size() || isSaved() ? nullptr : &steps_.back().step; }
    void resizeGrowing(std::size_t bytes) {
        bytes_ += bytes - steps_.back().bytes;
        steps_.back().bytes = bytes;
    }

    bool canUndo() const { return done_ > 0; }
    bool canRedo() const { return done_ < steps_.size(); }
    /// What `undo` and `redo` would give, for a caption. Null where there is nothing.
    const Step* nextUndo() const { return canUndo() ? &steps_[done_ - 1].step : nullptr; }
    const Step* nextRedo() const { return canRedo() ? &steps_[done_].step : nullptr; }

    /// The step to be taken back, and the one to be made again. Only where it can be.
    const Step& undo() { return steps_[--done_].step; }
    const Step& redo() { return steps_[done_++].step; }

    /// The present state is the one that is kept elsewhere.
    void markSaved() { saved_ = done_; }
    /// Whether it is so now, also after steps back and forth. A new history starts saved.
    bool isSaved() const { return saved_ == done_; }

    /// Forgets all steps. The present state counts as saved.
    void clear() {
        steps_.clear();
        bytes_ = done_ = 0;
        saved_ = 0;
    }

    std::size_t size() const { return steps_.size(); }
    std::size_t bytes() const { return bytes_; }

  private:
    struct Entry {
        Step step;
        std::size_t bytes;
    };

    void dropUndone() {
        for (; steps_.size() > done_; steps_.pop_back()) bytes_ -= steps_.back().bytes;
        if (saved_ && *saved_ > done_) saved_.reset();
    }

    void dropOldest() {
        bytes_ -= steps_.front().bytes;
        steps_.pop_front();
        --done_;
        if (saved_) saved_ = *saved_ > 0 ? std::optional(*saved_ - 1) : std::nullopt;
    }

    std::size_t most_;
    std::deque<Entry> steps_;
    std::size_t done_ = 0;  // how many of them stand
    std::size_t bytes_ = 0;
    std::optional<std::size_t> saved_ = 0;  // how many stood then; nothing when that state cannot come back
};

}  // namespace brasquelin
