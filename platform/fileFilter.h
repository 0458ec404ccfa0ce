// File-dialog filters as profiles write them, made fit for the toolkit.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brasquelin {

/// "Text files|*.txt" pairs. A description without a pattern is dropped (a lone text is both), nothing at all means
/// every file, and "*.*" becomes `anyFile`, the system's own pattern for that.
std::string fileFilter(std::string_view filter, std::string_view anyFile);

/// The same pairs with patterns that match in any letter case: "*.[tT][xX][tT]". For desktops that tell them apart.
std::string inEitherCase(std::string_view pairs);

/// The name that a save dialog stands for: with the extension of the selected pair of the filter, unless it ends in one
/// of the filter's extensions already, in any letter case. A pair for several extensions or any adds none.
std::string withExtension(std::string path, std::string_view filter, std::size_t selectedPair);

}  // namespace brasquelin
