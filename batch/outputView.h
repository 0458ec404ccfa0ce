// The text control `txtOutput`: the end of what jobs print. It follows the end, but stays still while the user has
// scrolled up or selected text.
#pragma once

#include <wx/stopwatch.h>
#include <wx/textctrl.h>

#include <cstdint>
#include <string>

#include "batch/outputTail.h"

namespace brasquelin {

class OutputView : public wxTextCtrl {
  public:
    explicit OutputView(wxWindow* parent);

    /// A piece of the output file, see OutputTail. Another piece than before shows its end at once.
    void show(const std::string& path, std::uint64_t begin, std::uint64_t end);
    /// To be called often: shows what is new, but never takes most of the time for it.
    void update();

  private:
    void notePlace();
    bool isAtEnd() const;
    void display(const wxString& text);
    void scrollToEnd();

    OutputTail tail_;
    wxString shown_;
    wxStopWatch watch_;
    long nextUpdate_ = 0;  // on the watch
    int place_ = 0;        // of the scroll bar, as it was left
    bool atOnce_ = false;
    bool following_ = true;
};

}  // namespace brasquelin
