// The file of the output, copied piece by piece, for it may be large.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

namespace brasquelin {

class OutputCopy {
  public:
    /// As much as there is now. Raises the errors of reading and writing, also when both are one file.
    OutputCopy(std::string from, std::string to);
    /// One that is not complete leaves the file as it was.
    ~OutputCopy();
    OutputCopy(const OutputCopy&) = delete;
    OutputCopy& operator=(const OutputCopy&) = delete;

    /// Copies some megabytes; true when all is there. Raises the errors of reading and writing.
    bool step();

    const std::string& target() const { return to_; }
    /// From 0 to 1.
    double fractionDone() const;

  private:
    void require(bool good) const;

    std::string from_;
    std::string to_;
    std::string unfinished_;
    std::ofstream file_;
    std::uint64_t size_ = 0;
    std::uint64_t position_ = 0;
    bool complete_ = false;
};

}  // namespace brasquelin
