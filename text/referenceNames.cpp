#include "text/referenceNames.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <functional>
#include <utility>

#include "text/text.h"

namespace brasquelin {

namespace {

char asciiLowerCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

char asciiUpperCase(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}

/// By where the line lies.
template <typename Places>
std::size_t placeIn(const Places& places, std::string_view line) {
    return (std::hash<const char*>()(line.data()) >> 4U) % places.size();
}

/// By a few of its bytes: lines of a file differ in one of these places, mostly.
std::size_t samplesOf(std::string_view line) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15;
    std::uint64_t sample = 0;
    std::uint64_t hash = line.size();
    if (line.size() < sizeof sample) {
        std::memcpy(&sample, line.data(), line.size());
        return static_cast<std::size_t>(((hash ^ sample) * factor) >> 48U);
    }
    const std::size_t last = line.size() - sizeof sample;
    for (const std::size_t begin : {std::size_t{0}, last / 2, last}) {
        std::memcpy(&sample, line.data() + begin, sizeof sample);
        hash = (hash ^ sample) * factor;
    }
    return static_cast<std::size_t>(hash >> 48U);
}

}  // namespace

void ReferenceNames::clear() {
    entries_.clear();
    oddOnes_.clear();
    firstCharacters_.reset();
    firstCharacters_.set('$');
    leftOutFrom_ = leftOutTo_ = 0;
    static std::uint64_t lastRevision = 0;
    revision_ = ++lastRevision;
}

void ReferenceNames::add(Turn turn, std::string_view name) {
    if (name.find('$') != std::string_view::npos) oddOnes_.push_back(entries_.size());
    entries_.push_back({std::string(name), turn, hashOf(name), none});
    if (name.empty()) return;
    firstCharacters_.set(static_cast<unsigned char>(asciiLowerCase(name.front())));
    firstCharacters_.set(static_cast<unsigned char>(asciiUpperCase(name.front())));
    if (isAscii(name.substr(0, 1))) return;
    for (std::size_t lead = 0x80; lead <= 0xFF; ++lead) firstCharacters_.set(lead);  // another case has another lead
}

/// The entries of a place keep their order.
void ReferenceNames::finish() {
    places_.assign(std::bit_ceil(2 * entries_.size() + 1), none);
    for (std::size_t i = entries_.size(); i > 0; --i) {
        Entry& entry = entries_[i - 1];
        std::size_t& first = places_[entry.hash & (places_.size() - 1)];
        entry.next = first;
        first = i - 1;
    }
}

const std::string& ReferenceNames::name(Turn turn) const {
    const auto at = std::lower_bound(entries_.begin(), entries_.end(), turn,
                                     [](const Entry& entry, Turn wanted) { return entry.turn < wanted; });
    return at->name;
}

void ReferenceNames::leaveOut(Turn first, Turn last) {
    leftOutFrom_ = first;
    leftOutTo_ = last;
}

/// Of the name in lower case.
std::uint32_t ReferenceNames::hashOf(std::string_view name) {
    constexpr std::uint32_t start = 2166136261;
    constexpr std::uint32_t factor = 16777619;
    std::uint32_t hash = start;
    for (const char byte : name) {
        if (static_cast<unsigned char>(byte) >= 0x80) {
            return static_cast<std::uint32_t>(std::hash<std::string>()(lowerCase(name)));
        }
        hash = (hash ^ static_cast<unsigned char>(asciiLowerCase(byte))) * factor;
    }
    return hash ^ (hash >> 15U);
}

ReferenceNames::Turn ReferenceNames::turnOf(std::string_view name, Turn from) const {
    if (places_.empty()) return never;
    const std::uint32_t hash = hashOf(name);
    for (std::size_t i = places_[hash & (places_.size() - 1)]; i != none; i = entries_[i].next) {
        const Entry& entry = entries_[i];
        if (entry.hash != hash || entry.turn < from || isLeftOut(entry.turn)) continue;
        if (entry.name == name || equalIgnoringCase(entry.name, name)) return entry.turn;
    }
    return never;
}

ReferenceNames::Turn ReferenceNames::next(const ReferenceText& text, Turn from) const {
    Turn first = never;
    for (std::size_t i = 0; i < text.pairCount(); ++i) {
        const std::string_view name = text.pair(i);
        if (name.empty() || mayBegin(name.front())) first = std::min(first, turnOf(name, from));
    }
    for (const std::size_t i : oddOnes_) {
        const Entry& entry = entries_[i];
        const bool due = entry.turn >= from && entry.turn < first && !isLeftOut(entry.turn);
        if (due && text.refersTo(entry.name)) first = entry.turn;
    }
    return first;
}

/// Long lines, of all names together: each by itself would take too much.
class ReferenceNames::LongLines {
  public:
    Prepared& placeOf(std::string_view line) { return places_[placeIn(places_, line)]; }

    /// A line that would take all the memory is only there until the next one comes.
    const Prepared& keep(Prepared& place, Prepared&& prepared) {
        bytes_ -= bytesOf(place);
        place = {};
        const std::size_t needed = bytesOf(prepared);
        if (needed > mostBytes) return unkept_ = std::move(prepared);
        if (bytes_ + needed > mostBytes) places_ = {}, bytes_ = 0;
        bytes_ += needed;
        return place = std::move(prepared);
    }

  private:
    static constexpr std::size_t mostBytes = 1U << 20U;

    static std::size_t bytesOf(const Prepared& prepared) {
        return prepared.line.size() + prepared.references.capacity() * sizeof(Reference);
    }

    std::array<Prepared, 32> places_;
    std::size_t bytes_ = 0;  // of all that is kept
    Prepared unkept_;
};

void ReferenceNames::prepareAnew(std::string_view line, Prepared& prepared) const {
    prepared.line = line;
    prepared.names = revision_;
    prepared.leftOutFrom = leftOutFrom_;
    prepared.references.clear();
    prepared.canBeJoined = findReferences(line, prepared.references);
}

bool ReferenceNames::isCurrent(const Prepared& prepared, std::string_view line) const {
    return prepared.names == revision_ && prepared.leftOutFrom == leftOutFrom_ && prepared.line == line;
}

const ReferenceNames::Prepared& ReferenceNames::prepare(std::string_view line) const {
    constexpr std::size_t places = 64;
    constexpr std::size_t longLine = 4096;
    if (line.size() >= longLine) return prepareLong(line);
    if (prepared_.empty()) prepared_.resize(places);
    PreparedPair& pair = prepared_[samplesOf(line) % places];
    if (isCurrent(pair.lines[pair.latest], line)) return pair.lines[pair.latest];
    pair.latest = 1 - pair.latest;
    Prepared& prepared = pair.lines[pair.latest];
    if (!isCurrent(prepared, line)) prepareAnew(line, prepared);
    return prepared;
}

const ReferenceNames::Prepared& ReferenceNames::prepareLong(std::string_view line) const {
    static LongLines lines;
    Prepared& place = lines.placeOf(line);
    if (isCurrent(place, line)) return place;
    Prepared prepared;
    prepareAnew(line, prepared);
    return lines.keep(place, std::move(prepared));
}

/// From the first dollar sign on. Those behind which no name begins make no references, wherever they are put in.
bool ReferenceNames::mayBePutIn(std::string_view value, std::size_t dollar) const {
    for (auto at = dollar; at != std::string_view::npos; at = value.find('$', at + 1)) {
        if (at + 1 < value.size() && mayBegin(value[at + 1])) return false;
    }
    return true;
}

/// The order of the names cannot matter when each piece between two dollar signs that is no reference begins as no name
/// does: whatever is put in behind its beginning, it becomes none. False when it may matter.
bool ReferenceNames::findReferences(std::string_view line, std::vector<Reference>& references) const {
    if (!oddOnes_.empty()) return false;
    for (auto begin = line.find('$'); begin != std::string_view::npos;) {
        const auto end = line.find('$', begin + 1);
        if (end == std::string_view::npos) break;
        const bool mayBeName = mayBegin(line[begin + 1]);
        const Turn turn = mayBeName ? turnOf(line.substr(begin + 1, end - begin - 1)) : never;
        if (turn == never && mayBeName) return false;
        if (turn != never) references.push_back({begin, end + 1, turn});
        begin = turn == never ? end : line.find('$', end + 1);
        if (turn != never && begin != std::string_view::npos && mayBegin(line[end + 1])) return false;
    }
    return true;
}

}  // namespace brasquelin
