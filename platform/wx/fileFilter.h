// File-dialog filters as profiles write them, made fit for the toolkit.
#pragma once

#include <string>
#include <string_view>

namespace brasquelin {

/// "Text files|*.txt" pairs. A description without a pattern is dropped (a lone text is both), nothing at all means
/// every file, and "*.*" becomes `anyFile`, the system's own pattern for that.
std::string fileFilter(std::string_view filter, std::string_view anyFile);

/// The extension that the pair number `index` stands for, such as ".txt"; empty when it stands for several or any.
std::string extensionOfFilter(std::string_view filter, std::size_t index);

}  // namespace brasquelin
