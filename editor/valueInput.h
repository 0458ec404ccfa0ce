// Asking for texts with the known references at hand, through the window `inputForm`.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

/// The answer of a window that was cancelled.
inline constexpr std::string_view canceledAnswer = "Canceled";

/// Shows the window and returns the answer: the text, or "Canceled".
std::string showValueInput(std::string_view prompt, std::string_view defaultText,
                           const std::vector<std::string>& references);

/// Several values, asked for one after another. Each window tells how many there are and can stop them all.
class ValueChain {
  public:
    /// `asked`: how many of them were asked for elsewhere.
    ValueChain(std::size_t count, std::vector<std::string> references, std::size_t asked = 0);

    /// As showValueInput; empty once the user has stopped the chain, and nothing is asked any more. `about` are lines
    /// that tell what the value may be.
    std::string ask(std::string_view prompt, std::string_view defaultText = {}, std::string_view about = {});
    bool stopped() const { return stopped_; }

  private:
    std::vector<std::string> references_;
    std::size_t count_;
    std::size_t asked_;
    bool stopped_ = false;
};

}  // namespace brasquelin
