#include "platform/wx/sashes.h"

#include <memory>
#include <numeric>

namespace brasquelin {

Sashes::Sashes(wxWindow* parent, std::size_t count) {
    constexpr long style = wxSP_LIVE_UPDATE | wxSP_NOBORDER | wxTAB_TRAVERSAL;
    constexpr int smallestPart = 60;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        auto* splitter = new wxSplitterWindow(i == 0 ? parent : splitters_.back(), wxID_ANY, wxDefaultPosition,
                                              wxDefaultSize, style, "sash");
        splitter->SetMinimumPaneSize(splitter->FromDIP(smallestPart));
        splitters_.push_back(splitter);
    }
}

wxWindow* Sashes::parentFor(std::size_t part) const {
    return part < splitters_.size() ? splitters_[part] : splitters_.back();
}

void Sashes::arrange(const std::vector<SashPart>& parts) {
    int left =
        std::accumulate(parts.begin(), parts.end(), 0, [](int sum, const SashPart& part) { return sum + part.weight; });
    for (std::size_t i = 0; i < splitters_.size(); ++i) {
        wxWindow* const below = i + 1 < splitters_.size() ? splitters_[i + 1] : parts.back().window;
        keepShares(*splitters_[i], *parts[i].window, *below, static_cast<double>(parts[i].weight) / left);
        below->MoveAfterInTabOrder(parts[i].window);
        left -= parts[i].weight;
    }
}

/// The parts keep their shares of the height, at first those that were given, then those that the user has chosen.
void Sashes::keepShares(wxSplitterWindow& splitter, wxWindow& above, wxWindow& below, double share) {
    for (auto* part : {&above, &below}) part->Hide();  // until it has a size
    const auto kept = std::make_shared<double>(share);
    splitter.Bind(wxEVT_SIZE, [&splitter, &above, &below, kept](wxSizeEvent& event) {
        event.Skip();
        const int height = event.GetSize().y;
        if (height < 2 * splitter.GetMinimumPaneSize()) return;
        const int position = static_cast<int>(height * *kept);
        splitter.IsSplit() ? splitter.SetSashPosition(position, false)
                           : (void)splitter.SplitHorizontally(&above, &below, position);
    });
    splitter.Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [&splitter, kept](wxSplitterEvent& event) {
        *kept = static_cast<double>(event.GetSashPosition()) / splitter.GetClientSize().y;
        event.Skip();
    });
}

}  // namespace brasquelin
