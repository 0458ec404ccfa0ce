// The names that a line may refer to, in the order in which they are replaced. What a pass over the line for each name
// in turn would give is found by looking at the line's references instead.
#pragma once

#include <array>
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

    struct Reference {
        std::size_t begin = 0;  // of its first dollar sign
        std::size_t end = 0;    // behind the second one
        Turn turn = 0;
    };
    /// What is known of a line while the names stay.
    struct Prepared {
        std::string line;
        std::uint64_t names = 0;  // their revision
        Turn leftOutFrom = never;
        bool canBeJoined = false;
        std::vector<Reference> references;
    };

    /// Two lines of one place, so that those that take turns do not drive each other out.
    struct PreparedPair {
        std::array<Prepared, 2> lines;
        std::size_t latest = 0;
    };
    class LongLines;

    const Prepared& prepare(std::string_view line) const;
    const Prepared& prepareLong(std::string_view line) const;
    void prepareAnew(std::string_view line, Prepared& prepared) const;
    bool isCurrent(const Prepared& prepared, std::string_view line) const;
    bool findReferences(std::string_view line, std::vector<Reference>& references) const;

    static std::uint32_t hashOf(std::string_view name);
    bool mayBePutIn(std::string_view value, std::size_t dollar) const;
    bool mayBegin(char first) const { return firstCharacters_[static_cast<unsigned char>(first)]; }
    bool isLeftOut(Turn turn) const { return turn >= leftOutFrom_ && turn < leftOutTo_; }

    std::vector<Entry> entries_;
    std::vector<std::size_t> places_;   // by hash: the first entry
    std::vector<std::size_t> oddOnes_;  // entries whose names hold dollar signs
    std::bitset<256> firstCharacters_;  // of the names, in any letter case; and the dollar sign
    Turn leftOutFrom_ = 0;
    Turn leftOutTo_ = 0;
    std::uint64_t revision_ = 0;  // of the names: other names never have the same
    mutable std::vector<PreparedPair>
        prepared_;  // by samples of the lines: loops and checks come to the same ones again
};

template <typename ValueOf>
bool ReferenceNames::join(std::string_view line, ValueOf valueOf, std::string& joined) const {
    if (line.find('$') == std::string_view::npos) {
        joined.assign(line);
        return true;
    }
    const Prepared& prepared = prepare(line);
    if (!prepared.canBeJoined) return false;
    joined.clear();
    std::size_t taken = 0;
    std::size_t longest = line.size();  // on the way
    for (const Reference& reference : prepared.references) {
        const auto value = valueOf(reference.turn);
        if (!value) return false;
        const auto dollar = value->find('$');
        if (dollar != std::string_view::npos && !mayBePutIn(*value, dollar)) return false;
        longest += value->size();
        if (longest > mostExpandedBytes) return false;
        joined.append(line.data() + taken, reference.begin - taken).append(*value);
        taken = reference.end;
    }
    joined.append(line.data() + taken, line.size() - taken);
    return true;
}

}  // namespace brasquelin
