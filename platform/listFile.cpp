#include "platform/listFile.h"

#include <algorithm>
#include <utility>

#include "platform/codePages.h"
#include "platform/paths.h"
#include "platform/systemCodePages.h"
#include "platform/textFiles.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

ListFile::ListFile(std::string path, std::uint64_t mostPieceBytes, std::uint64_t usualPieceBytes)
    : path_(std::move(path)),
      mostPieceBytes_(mostPieceBytes),
      usualPieceBytes_(std::min(mostPieceBytes, usualPieceBytes)) {
    stamp_ = fileStamp(path_).value_or(FileStamp());
    const bool isOnePiece = stamp_.size <= usualPieceBytes_;
    piece_ = isOnePiece ? readFileBytes(path_, mostPieceBytes_)
                        : readFilePart(path_, 0, static_cast<std::size_t>(usualPieceBytes_));
    size_ = isOnePiece ? piece_.size() : stamp_.size;
    if (!isOnePiece && !isAbsolutePath(path_)) path_ = shortPath(path_);  // each line may change the directory
    readMark();
    if (findEnd() == std::string_view::npos) lineEnd_ = '\r';
    examine();
}

void ListFile::readMark() {
    constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
    if (piece_.starts_with("\xFF\xFE")) units_ = Units::littleEndian;
    if (piece_.starts_with("\xFE\xFF")) units_ = Units::bigEndian;
    if (units_ != Units::bytes) begin_ = 2;
    if (piece_.starts_with(utf8Mark)) begin_ = utf8Mark.size();
    position_ = pieceBegin_ = begin_;
    piece_.erase(0, static_cast<std::size_t>(begin_));
}

/// Which code page it is, only the whole file tells; and what cannot be obeyed is found before any line is.
void ListFile::examine() {
    for (std::string_view bytes; nextBytes(bytes); ++lineCount_) {
        const bool holdsNul = (units_ == Units::bytes ? bytes.find('\0') : decoded(bytes).find('\0')) != bytes.npos;
        if (holdsNul) raiseNul(path_, static_cast<int>(lineNumber_));
        isUtf8_ = isUtf8_ && isUtf8(bytes);
        if (isKept()) kept_.add(bytes);
    }
    if (isKept()) {
        std::string().swap(piece_);
        return;
    }
    lineNumber_ = 0;
    position_ = begin_;
    load(usualPieceBytes_);
}

bool ListFile::next(std::string& line) {
    std::string_view bytes;
    if (isKept()) {
        const auto kept = kept_.take();
        if (!kept) return false;
        bytes = *kept;
    } else if (!nextBytes(bytes)) {
        return false;
    }
    if (units_ == Units::bytes && isUtf8_) {
        line = bytes;
    } else {
        line = decoded(bytes);
    }
    return true;
}

/// The next line without its end; it lives until the next call.
bool ListFile::nextBytes(std::string_view& bytes) {
    if (position_ >= size_) return false;
    ++lineNumber_;
    const std::size_t end = findEnd();
    if (end == std::string_view::npos && !reachesEnd()) {
        throw RunTimeError(ErrorNumber::outOfMemory, path_, static_cast<int>(lineNumber_))
            .because("The line is longer than " + std::to_string(mostPieceBytes_ >> 20U) + " MB.");
    }
    bytes = restOfPiece().substr(0, end);
    const bool ended = end != std::string_view::npos;
    const std::size_t unitSize = units_ == Units::bytes ? 1 : 2;
    position_ += bytes.size() + (ended ? unitSize : 0);
    const bool returns = units_ == Units::bytes ? bytes.ends_with('\r') : bytes.ends_with(unitOf('\r'));
    if (ended && lineEnd_ == '\n' && returns) bytes.remove_suffix(unitSize);
    return true;
}

/// Where the line in hand ends in the rest of the piece, which becomes as long as it has to. npos for a last line
/// without an end, and for one that is longer than the longest piece.
std::size_t ListFile::findEnd() {
    std::size_t end = findEnd(restOfPiece());
    for (std::uint64_t most = usualPieceBytes_; end == std::string_view::npos && !reachesEnd(); most *= 2) {
        load(std::min(most, mostPieceBytes_));
        end = findEnd(piece_);
        if (most >= mostPieceBytes_) break;
    }
    return end;
}

/// The piece that starts with the line in hand.
void ListFile::load(std::uint64_t most) {
    if (fileStamp(path_) != stamp_) {
        throw RunTimeError(ErrorNumber::pathFileAccess, path_).because("The file was changed while it was read.");
    }
    piece_ = readFilePart(path_, position_, static_cast<std::size_t>(std::min(most, size_ - position_)));
    pieceBegin_ = position_;
    if (piece_.empty()) size_ = position_;
}

std::string_view ListFile::restOfPiece() const {
    return std::string_view(piece_).substr(static_cast<std::size_t>(position_ - pieceBegin_));
}

std::string ListFile::unitOf(char character) const {
    return units_ == Units::bigEndian ? std::string{'\0', character} : std::string{character, '\0'};
}

std::size_t ListFile::findEnd(std::string_view bytes) const {
    if (units_ == Units::bytes) return bytes.find(lineEnd_);
    const std::string end = unitOf(lineEnd_);
    std::size_t at = bytes.find(end);
    while (at != std::string_view::npos && at % end.size() != 0) at = bytes.find(end, at + 1);
    return at;
}

std::string ListFile::decoded(std::string_view bytes) const {
    if (units_ == Units::bytes) return isUtf8_ ? std::string(bytes) : fromOem(bytes);
    return decodeOem(std::string(units_ == Units::bigEndian ? "\xFE\xFF" : "\xFF\xFE").append(bytes));
}

}  // namespace brasquelin
