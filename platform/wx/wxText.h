// The program's UTF-8 texts to the toolkit's and back.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <string>
#include <string_view>
#include <vector>

namespace brasquelin {

inline wxString toWx(std::string_view text) {
    wxString converted = wxString::FromUTF8(text.data(), text.size());
    return converted.empty() && !text.empty() ? wxString::From8BitData(text.data(), text.size()) : converted;
}

inline wxArrayString toWx(const std::vector<std::string>& texts) {
    wxArrayString converted;
    for (const auto& text : texts) converted.push_back(toWx(text));
    return converted;
}

inline std::string fromWx(const wxString& text) {
    return std::string(text.utf8_string());
}

/// For boxes and labels: line ends as the toolkit wants them.
inline wxString toWxLines(std::string_view text) {
    wxString converted = toWx(text);
    converted.Replace("\r\n", "\n");
    return converted;
}

}  // namespace brasquelin
