// The substitution primitives: references are names between two dollar signs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// The longest result of a replacement.
inline constexpr std::size_t mostExpandedBytes = 16ULL << 20;

/// Called now and then while references of a long text are looked for; null for nobody. It may throw.
using LongWorkHook = void (*)();
void setLongWorkHook(LongWorkHook hook);

/// A text whose references are replaced one name after another. It keeps the places of its dollar signs, so that a
/// name that it does not refer to costs next to nothing, and any other one pass over the text. Replacing raises 6 for a
/// result longer than mostExpandedBytes, and leaves the text as it was.
class ReferenceText {
  public:
    explicit ReferenceText(std::string text = {});
    void assign(std::string_view text);

    /// False when no reference is possible: fewer than two dollar signs.
    bool mayRefer() const { return dollars_.size() > 1; }

    /// What stands between the neighbouring dollar signs of number `index` and the one behind it: a name, if it is one.
    std::size_t pairCount() const { return mayRefer() ? dollars_.size() - 1 : 0; }
    std::string_view pair(std::size_t index) const {
        const std::size_t begin = dollars_[index] + 1;
        return std::string_view(text_).substr(begin, dollars_[index + 1] - begin);
    }

    /// True when the text holds "$" + name + "$" in any letter case.
    bool refersTo(std::string_view name) const;

    /// Replaces every "$" + name + "$" in any letter case, left to right, without rescanning what was put in.
    void replace(std::string_view name, std::string_view value);

    /// Replaces every `opening` + "($" + name + "$)" in exact letter case; `opening` is "index" or "text".
    void replaceForm(std::string_view opening, std::string_view name, std::string_view value);

    const std::string& text() const { return text_; }
    std::string take() { return std::move(text_); }

  private:
    bool mayHoldGap(std::size_t length) const;
    bool pairMatches(std::size_t index, std::string_view name) const;
    void replacePairs(std::size_t first, std::string_view name, std::string_view value);
    void keepText(std::size_t begin, std::size_t end);
    void tellLongWork() const;
    void findDollars();
    void findGaps();

    std::string text_;
    std::vector<std::size_t> dollars_;
    std::string built_;  // the result of a pass; kept for its memory, as is what follows
    std::vector<std::size_t> builtDollars_;
    std::uint64_t gaps_ = 0;  // bit n: two neighbouring dollar signs stand n bytes apart
    bool ascii_ = true;
};

/// `text` with every "$" + name + "$" replaced by `value`, in any letter case. An empty name stands for "$$".
/// Raises 6 as above.
std::string replaceVar(std::string_view name, std::string_view value, std::string_view text);

/// The text before the last separator ("\" or "/"); empty without one.
std::string dirOf(std::string_view path);

/// The text after the last separator ("\" or "/").
std::string fileNameOf(std::string_view path);

/// Every back-slash doubled; the first three characters are kept and followed by one more back-slash. Shorter than
/// seven characters: empty. A path that starts with "/" is left as it is.
std::string doubleBackslashes(std::string_view path);

}  // namespace brasquelin
