// The names that a line may refer to, in the order in which they are replaced. What a pass over the line for each name
// in turn would give is found by looking at the line's references instead.
#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "text/substitution.h"

namespace brasquelin {

class ReferenceNames {
  public:
    /// When a name has its turn: the lower, the sooner.
    using Turn = std::uint32_t;
    static constexpr Turn never = std::numeric_limits<Turn>::max();

    /// Names stand in tables of at most 256 rows, which have their turns pass by pass, one table in each.
    template <typename Pass>
    static constexpr Turn turnIn(Pass pass, std::size_t row) {
        return static_cast<Turn>(pass) * mostRows + static_cast<Turn>(row);
    }
    template <typename Pass>
    static constexpr Pass passOf(Turn turn) {
        return static_cast<Pass>(turn / mostRows);
    }
    static constexpr std::size_t rowOf(Turn turn) { return turn % mostRows; }

    ReferenceNames() { clear(); }
    void clear();
    /// Turns are given in rising order. A name may have several.
    void add(Turn turn, std::string_view name);
    /// To be called behind the last name.
    void finish();

    const std::string& name(Turn turn) const;

    /// The names of these turns, but for the last, are left out.
    void leaveOut(Turn first, Turn last);

    /// The first turn, not before `from`, of this name in any letter case.
    Turn turnOf(std::string_view name, Turn from = 0) const;

    /// The first turn, not before `from`, of a name that the text refers to. What `turnOf` gives to a line's references
    /// changes with each that is replaced.
    Turn next(const ReferenceText& text, Turn from) const;

    /// Replaces the references in one go where their order cannot matter. `valueOf` gives a name's value by its turn,
    /// or a null pointer where a value alone does not do. False when the order may matter: `joined` is of no use then.
    template <typename ValueOf>
    bool join(std::string_view line, ValueOf valueOf, std::string& joined) const;

  private:
    static constexpr Turn mostRows = 256;

    struct Entry {
        std::string name;
        Turn turn = 0;
        std::uint32_t hash = 0;
        std::size_t next = none;  // of the same place
    };
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    static std::uint32_t hashOf(std::string_view name);
    bool mayBegin(char first) const { return firstCharacters_[static_cast<unsigned char>(first)]; }
    bool isLeftOut(Turn turn) const { return turn >= leftOutFrom_ && turn < leftOutTo_; }

    std::vector<Entry> entries_;
    std::vector<std::size_t> places_;   // by hash: the first entry
    std::vector<std::size_t> oddOnes_;  // entries whose names hold dollar signs
    std::bitset<256> firstCharacters_;  // of the names, in any letter case; and the dollar sign
    Turn leftOutFrom_ = 0;
    Turn leftOutTo_ = 0;
};

/// The order cannot matter when each piece between two dollar signs that is no reference begins as no name does:
/// whatever is put in behind its beginning, it becomes none. Nor may a value bring dollar signs.
template <typename ValueOf>
bool ReferenceNames::join(std::string_view line, ValueOf valueOf, std::string& joined) const {
    if (!oddOnes_.empty()) return false;
    joined.clear();
    joined.reserve(2 * line.size());
    std::size_t taken = 0;
    std::size_t longest = line.size();  // on the way
    for (auto begin = line.find('$'); begin != std::string_view::npos;) {
        const auto end = line.find('$', begin + 1);
        if (end == std::string_view::npos) break;
        const Turn turn = mayBegin(line[begin + 1]) ? turnOf(line.substr(begin + 1, end - begin - 1)) : never;
        if (turn == never) {
            if (mayBegin(line[begin + 1])) return false;
            begin = end;
            continue;
        }
        const auto value = valueOf(turn);
        if (!value || value->find('$') != std::string_view::npos) return false;
        longest += value->size();
        if (longest > mostExpandedBytes) return false;
        joined.append(line, taken, begin - taken).append(*value);
        taken = end + 1;
        begin = line.find('$', taken);
        if (begin != std::string_view::npos && mayBegin(line[taken])) return false;
    }
    joined.append(line, taken);
    return true;
}

}  // namespace brasquelin
