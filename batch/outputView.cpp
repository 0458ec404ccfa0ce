#include "batch/outputView.h"

#include <algorithm>
#include <cstddef>

#include "platform/wx/wxText.h"

namespace brasquelin {

namespace {

constexpr std::size_t mostBytes = 128U << 10U;

}  // namespace

OutputView::OutputView(wxWindow* parent)
    : wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                 wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP | wxTE_RICH2 | wxTE_NOHIDESEL, wxDefaultValidator,
                 "txtOutput"),
      tail_(mostBytes) {
    wxFont font = GetFont();
    font.SetFamily(wxFONTFAMILY_TELETYPE);
    SetFont(font);
    SetDefaultStyle(wxTextAttr(wxNullColour, wxNullColour, font));  // of what is replaced, too
}

void OutputView::show(const std::string& path, std::uint64_t begin, std::uint64_t end) {
    if (tail_.show(path, begin, end)) atOnce_ = true;
}

void OutputView::update() {
    constexpr long shortestPause = 100;  // milliseconds
    constexpr long mostOfTime = 4;       // pauses are that much longer than the work
    notePlace();
    if (!atOnce_ && (!following_ || watch_.Time() < nextUpdate_)) return;
    const wxStopWatch work;
    if (tail_.update() || atOnce_) {
        atOnce_ = false;
        display(toWx(tail_.text()));
        scrollToEnd();
        following_ = true;
    }
    nextUpdate_ = watch_.Time() + std::max(shortestPause, mostOfTime * work.Time());
}

/// What moved away from the end since the last look was the user. At the end again, it is followed again.
void OutputView::notePlace() {
    long from = 0;
    long to = 0;
    GetSelection(&from, &to);
    const int place = GetScrollPos(wxVERTICAL);
    if (from != to || (place < place_ && !isAtEnd())) {
        following_ = false;
    } else if (isAtEnd()) {
        following_ = true;
    }
    place_ = place;
}

bool OutputView::isAtEnd() const {
    const int line = GetCharHeight();
    return GetScrollPos(wxVERTICAL) + GetScrollThumb(wxVERTICAL) + line >= GetScrollRange(wxVERTICAL);
}

/// Only what differs, so that a text that grows does not flicker.
void OutputView::display(const wxString& text) {
    const auto [here, there] = std::mismatch(shown_.begin(), shown_.end(), text.begin(), text.end());
    const auto same = static_cast<std::size_t>(here - shown_.begin());
    if (same == shown_.size()) {
        AppendText(text.Mid(same));
    } else if (same > shown_.size() / 2) {
        Replace(static_cast<long>(same), GetLastPosition(), text.Mid(same));
    } else {
        ChangeValue(text);
    }
    shown_ = text;
}

/// To the begin of the last line: a long one would scroll sideways.
void OutputView::scrollToEnd() {
    const auto lineEnd = shown_.rfind('\n');
    ShowPosition(lineEnd == wxString::npos ? 0 : static_cast<long>(lineEnd + 1));
    place_ = GetScrollPos(wxVERTICAL);
}

}  // namespace brasquelin
