#include "platform/wx/messageLines.h"

#include <wx/tokenzr.h>

namespace brasquelin {

namespace {

std::size_t breakOf(const wxString& line, std::size_t width) {
    for (const char* separators : {" ", "/\\"}) {
        const auto place = line.find_last_of(separators, width - 1);
        if (place != wxString::npos && place > width / 2) return place + 1;
    }
    return width;
}

wxString brokenLine(wxString line, std::size_t width) {
    wxString broken;
    while (line.length() > width) {
        const std::size_t place = breakOf(line, width);
        broken += line.substr(0, place) + '\n';
        line.erase(0, place);
    }
    return broken + line;
}

}  // namespace

wxString brokenIntoLines(const wxString& text, std::size_t width) {
    wxString broken;
    wxStringTokenizer lines(text, "\n", wxTOKEN_RET_EMPTY_ALL);
    while (lines.HasMoreTokens()) {
        broken += brokenLine(lines.GetNextToken(), width);
        if (lines.HasMoreTokens()) broken += '\n';
    }
    return broken;
}

}  // namespace brasquelin
