// Text for whoever started the program from a console or a script.
#pragma once

#include <string_view>

namespace brasquelin {

enum class StandardStream { output, error };

/// Prints the text, whose lines end with "\n". Windows: where the stream leads nowhere, to the console of whoever
/// started the program, or in a message box when there is none.
void print(StandardStream stream, std::string_view text);

}  // namespace brasquelin
