// The stream that comes from a shell, split into what the lines print and the marks of their ends.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace brasquelin {

/// A line has ended.
struct EndMark {
    std::size_t number = 0;
    int status = 0;
    bool last = false;  // the shell begins no further line
};

class OutputMarks {
  public:
    /// `mark` is what comes in front of number and status (see endMark in platform/jobShell.h).
    explicit OutputMarks(std::string mark) : mark_(std::move(mark)) {}

    /// Takes the next bytes of the stream, cut anywhere, and tells what they hold, in order.
    void take(std::string_view bytes, const std::function<void(std::string_view)>& output,
              const std::function<void(const EndMark&)>& ended);
    /// The stream is over: what was held back as the beginning of a mark.
    std::string rest() { return std::move(held_); }

  private:
    std::string mark_;
    std::string held_;
};

}  // namespace brasquelin
