// List files, which may be longer than any other text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "text/lineQueue.h"

namespace brasquelin {

/// The lines of a file whose unmarked bytes may be in the OEM page (see codePages.h). A file of any size is read. Up to
/// the size of the longest piece its lines are kept in memory and leave it as they are taken; of a longer one there is
/// no more than one piece. Pieces start with a line and hold an even number of bytes.
class ListFile {
  public:
    /// Raises 53, 70, 75 or 76; with the line: 75 for what holds a NUL, 7 for a line longer than a piece.
    explicit ListFile(std::string path, std::uint64_t mostPieceBytes = mostTextBytes,
                      std::uint64_t usualPieceBytes = 1U << 16U);

    std::size_t lineCount() const { return lineCount_; }

    /// False behind the last line. Raises as above, and 75 when the file has changed since it was opened.
    bool next(std::string& line);

  private:
    /// UTF-16 has units of two bytes.
    enum class Units { bytes, littleEndian, bigEndian };

    void readMark();
    void examine();
    bool nextBytes(std::string_view& bytes);
    void load(std::uint64_t most);
    bool isKept() const { return stamp_.size <= mostPieceBytes_; }
    bool reachesEnd() const { return pieceBegin_ + piece_.size() >= size_; }
    std::string_view restOfPiece() const;
    std::size_t findEnd();
    std::size_t findEnd(std::string_view bytes) const;
    std::string unitOf(char character) const;
    std::string decoded(std::string_view bytes) const;

    std::string path_;
    std::uint64_t mostPieceBytes_;
    std::uint64_t usualPieceBytes_;
    FileStamp stamp_;
    std::uint64_t size_ = 0;
    std::string piece_;
    std::uint64_t pieceBegin_ = 0;
    LineQueue kept_;           // the lines
    std::uint64_t begin_ = 0;  // of the text, behind the mark
    std::uint64_t position_ = 0;
    Units units_ = Units::bytes;
    char lineEnd_ = '\n';
    bool isUtf8_ = true;
    std::size_t lineNumber_ = 0;  // lines given so far
    std::size_t lineCount_ = 0;
};

}  // namespace brasquelin
