// Text for whoever started the program from a console or a script.
#pragma once

#include <string_view>

namespace brasquelin {

enum class StandardStream { output, error };

/// Writes the text, whose lines end with "\n". False where the stream leads nowhere (Windows, unless redirected).
bool writeTo(StandardStream stream, std::string_view text);

/// The same for bytes that stay as they are.
bool writeBytes(StandardStream stream, std::string_view bytes);

/// True when somebody reads the stream on a terminal (Linux).
bool isTerminal(StandardStream stream);

/// The answer to an option of the command line. Windows: where the stream leads nowhere, to the console of whoever
/// started the program, or in a message box when there is none.
void print(StandardStream stream, std::string_view text);

/// "title: text" and the end of a line on standard error, lost where that leads nowhere; any carriage returns go.
void writeMessage(std::string_view title, std::string_view text);

}  // namespace brasquelin
