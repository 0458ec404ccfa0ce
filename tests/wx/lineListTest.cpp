#include "platform/wx/lineList.h"

#include <wx/frame.h>

#include "platform/wx/wxText.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

using Rows = std::vector<std::size_t>;

class SampleList : public LineList {
  public:
    explicit SampleList(wxWindow* parent, Selection selection = Selection::several)
        : LineList(parent, "sample", wxBORDER_NONE, parent->GetClientSize(), selection) {}
    void show(Lines lines) {
        lines_ = std::move(lines);
        showLines();
    }
    void copy() { copySelected(); }

  protected:
    std::size_t lineCount() const override { return lines_.size(); }
    std::string_view line(std::size_t index) const override { return lines_[index]; }
    std::optional<std::size_t> longestLine() const override {
        return lines_.empty() ? std::nullopt : std::optional<std::size_t>(0);
    }

  private:
    Lines lines_;
};

class LineListTest : public WindowTest {
  protected:
    LineListTest() {
        frame_->Show();
        pump();
    }
    wxFrame* frame_ = new wxFrame(nullptr, wxID_ANY, "Lines", wxDefaultPosition, wxSize(400, 300));
    SampleList& list_ = *new SampleList(frame_);
};

TEST_F(LineListTest, SeveralLinesAreSelectedHoweverManyThereAre) {
    Rows all(10'000), odd, most;
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = i;
        if (i % 2 == 1 && i < 9000) odd.push_back(i);
        if (i % 100 != 7) most.push_back(i);
    }
    list_.show(Lines(all.size(), "line"));
    pump();
    EXPECT_EQ(std::nullopt, list_.selectedLine());
    list_.selectAll();
    EXPECT_EQ(all, list_.selectedLines());
    Rows moved = odd;
    moved.back() += 1;
    for (const auto& rows : {odd, moved, most, Rows{3, 9'999}, Rows{}}) {
        list_.selectLines(rows);
        EXPECT_EQ(rows, list_.selectedLines());
        EXPECT_EQ(rows.size(), list_.selectedCount());
        EXPECT_EQ(rows.empty() ? std::nullopt : std::optional(rows.front()), list_.selectedLine());
    }
    list_.selectLines(odd);
    list_.selectLine(5);
    EXPECT_EQ(Rows{5}, list_.selectedLines());
    list_.selectAll();
    list_.show({"one", "", "three"});
    EXPECT_EQ(Rows(), list_.selectedLines());
}

TEST_F(LineListTest, AMenuIsForAllSelectedLinesAndCopyTakesThem) {
    list_.show({"", "b", "c"});
    list_.selectLines({0, 2});
    pump();
    const auto middleOf = [&](long item) {
        wxRect row;
        EXPECT_TRUE(list_.GetItemRect(item, row));
        return row.GetPosition() + wxPoint(3, row.height / 2);
    };
    list_.selectLineAt(middleOf(2));
    EXPECT_EQ((Rows{0, 2}), list_.selectedLines());
    EXPECT_EQ(2U, list_.selectedLine());
    list_.copy();
    EXPECT_EQ("\nc", windows.clipboardText());
    list_.selectLineAt(middleOf(1));
    EXPECT_EQ(Rows{1}, list_.selectedLines());
    list_.selectLineAt({3, 290});
    EXPECT_EQ(Rows{1}, list_.selectedLines());

    LineDragging dragging(list_, {});
    EXPECT_EQ(1U, dragging.lineFor(middleOf(1) - wxPoint(0, 3)));
    EXPECT_EQ(2U, dragging.lineFor(middleOf(1) + wxPoint(0, 3)));
    EXPECT_EQ(3U, dragging.lineFor({3, 290}));
}

}  // namespace
}  // namespace brasquelin
