// A question with two answers and a way out.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

enum class Choice { first, second, neither };

struct ChoiceQuestion {
    std::string text;
    std::string title;
    std::string first;  // the buttons
    std::string second;
    std::string neither;  // Escape and the close box, too
    bool neitherByEnter = false;
};

Choice askChoice(const ChoiceQuestion& question);

}  // namespace brasquelin
