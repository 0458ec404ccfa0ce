#include <wx/checkbox.h>
#include <wx/clipbrd.h>
#include <wx/gauge.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "batch/frmRun.h"
#include "batch/runRowList.h"
#include "batch/runSession.h"
#include "platform/files.h"
#include "platform/wx/wxText.h"
#include "wx/windowTest.h"

namespace brasquelin {
namespace {

using Kind = RunMessageKind;

/// What a runner has said and heard.
struct Wire {
    std::vector<RunMessage> said;
    Lines heard;
    bool open = true;
};

class FakeLink : public RunLink {
  public:
    explicit FakeLink(std::shared_ptr<Wire> wire) : wire_(std::move(wire)) {}
    std::vector<RunMessage> receive() override { return std::exchange(wire_->said, {}); }
    void send(const RunMessage& message) override {
        std::string line = encode(message);
        wire_->heard.push_back(line.substr(0, line.find(' ')) + (message.job > 0 ? " 1" : "") +
                               (message.text.empty() ? "" : " " + message.text));
    }
    bool isOpen() const override { return wire_->open; }

  private:
    std::shared_ptr<Wire> wire_;
};

class RunWindow : public WindowTest {
  protected:
    void open(int jobs, Kind then = Kind::ready, const std::function<void()>& more = {}) {
        say(Kind::title, " Tool");
        say(Kind::batchFile, "/x/brasquelin.bat");
        say(Kind::outputFile, inDirectory("output.txt"));
        for (int i = 1; i <= jobs; ++i) say(Kind::job, "job\t" + std::to_string(i));
        if (then != Kind::job) say(then);
        if (more) more();
        showRunWindow(
            std::make_unique<FakeLink>(wire),
            [this] {
                wire = std::make_shared<Wire>();
                return std::make_unique<FakeLink>(wire);
            },
            inDirectory("run.ini"));
        frame = dynamic_cast<FrmRun*>(loadedWindow("frmRun"));
    }
    void say(Kind kind, const std::string& text) {
        RunMessage message{kind};
        message.text = text;
        wire->said.push_back(message);
    }
    void say(Kind kind) { say(kind, std::string()); }
    void start(std::size_t job) { wire->said.push_back({Kind::started, job, 1000, 0, written.size()}); }
    void print(const std::string& text) {
        written += text;
        brasquelin::writeFile(inDirectory("output.txt"), written);
    }
    void end(std::size_t job, int exitCode = 0) {
        wire->said.push_back({Kind::ended, job, 1000, 100, written.size(), exitCode});
    }
    void run(std::size_t job, int exitCode = 0) {
        start(job);
        print("output " + std::to_string(job) + "\n");
        end(job, exitCode);
    }

    RunRowList& rows() { return control<RunRowList>(*frame, "JobRows"); }
    Lines states() {
        Lines texts;
        for (long item = 0; item < rows().GetItemCount(); ++item) texts.push_back(fromWx(rows().GetItemText(item)));
        return texts;
    }
    std::string output() { return fromWx(control<wxTextCtrl>(*frame, "txtOutput").GetValue()); }
    std::string message() { return fromWx(control<wxStaticText>(*frame, "lblMessage").GetLabelText()); }
    bool enabled(const std::string& button) { return findControl(*frame, button)->IsThisEnabled(); }
    bool titleBecomes(const std::string& title) {
        const bool became = becomesTrue([&] { return fromWx(frame->GetTitle()) == title; });
        EXPECT_EQ(title, fromWx(frame->GetTitle()));
        return became;
    }
    void pressAlt(int letter) {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = letter;
        event.SetAltDown(true);
        rows().HandleWindowEvent(event);
        pump();
    }
    void check(const std::string& name, bool value) {
        auto& box = control<wxCheckBox>(*frame, name);
        box.SetValue(value);
        wxCommandEvent event(wxEVT_CHECKBOX, box.GetId());
        event.SetInt(value ? 1 : 0);
        box.HandleWindowEvent(event);
    }
    std::string clipboard() {
        wxTextDataObject text;
        const wxClipboardLocker lock;
        wxTheClipboard->GetData(text);
        return fromWx(text.GetText());
    }

    std::shared_ptr<Wire> wire = std::make_shared<Wire>();
    std::string written;
    FrmRun* frame = nullptr;
};

TEST_F(RunWindow, JobsAndOutputAreShownAsTheyCome) {
    open(3);
    ASSERT_TRUE(titleBecomes("0 % - 0 of 3 - Tool"));
    run(1, 7);
    start(2);
    print("10 %\r");
    print("20 %\r");
    ASSERT_TRUE(becomesTrue([&] { return output() == "20 %"; }));
    EXPECT_EQ((Lines{"Failed, status 7", "Running", "Waiting"}), states());
    EXPECT_EQ(2U, rows().selectedJob());  // the running job is followed
    EXPECT_EQ("job\u24092", fromWx(control<wxTextCtrl>(*frame, "txtCommand").GetValue()));
    EXPECT_TRUE(enabled("cmdStopAfter") && enabled("cmdStopNow"));
    EXPECT_FALSE(enabled("cmdRunFailed") || enabled("cmdRunFrom"));

    rows().selectJobAt(wxPoint(5, 5));
    rows().Select(0);  // stays selected while others run
    end(2);
    start(3);
    ASSERT_TRUE(becomesTrue([&] { return states().back() == "Running"; }));
    EXPECT_EQ(1U, rows().selectedJob());
    EXPECT_EQ("output 1\n", output());
    pressAlt('H');
    print("\nend\n");
    EXPECT_TRUE(becomesTrue([&] { return output() == "output 1\n20 %\nend\n"; })) << output();
    EXPECT_TRUE(becomesTrue([&] { return control<wxGauge>(*frame, "gauge").GetValue() == 666; }));
    click(*frame, "cmdCopyOutput");
    EXPECT_EQ("output 1\n20 %\nend\n", clipboard());
    choosePopUps("Copy line");
    rightClick(rows());
    EXPECT_EQ("job\t1", clipboard());
}

/// It may be over, and what follows in the file the output of others.
TEST_F(RunWindow, TheOutputOfAJobIsShownOnceItRunsForAWhile) {
    open(2, Kind::ready, [this] {
        start(1);
        print("of whom?\n");
    });
    EXPECT_EQ(1U, rows().selectedJob());
    EXPECT_EQ("", output());
    EXPECT_TRUE(becomesTrue([this] { return output() == "of whom?\n"; }));
}

TEST_F(RunWindow, ButtonsTellTheRunner) {
    open(3);
    start(1);
    ASSERT_TRUE(becomesTrue([&] { return enabled("cmdStopAfter"); }));
    for (int times = 0; times < 3; ++times) pressAlt('F');
    click(*frame, "cmdStopAfter");
    pressAlt('N');
    EXPECT_EQ((Lines{"stop-at-failure 1", "stop-at-failure", "stop-at-failure 1", "stop-after-job", "stop-now"}),
              wire->heard);
    say(Kind::trouble, "The log cannot be written.");
    end(1, 1);
    say(Kind::finished, "stopped");
    wire->open = false;
    ASSERT_TRUE(titleBecomes("Stopped - 1 of 3 - Tool"));
    EXPECT_EQ("Stopped: 0 of 3 jobs done, 1 failed, 2 left out.\nThe log cannot be written.", message());

    // Once more with a new runner, in the same rows.
    click(*frame, "cmdRunFailed");
    EXPECT_EQ((Lines{"title  Tool", "batch /x/brasquelin.bat", "log", "output " + inDirectory("output.txt"),
                     "job job\t1", "job job\t2", "job job\t3", "run 1", "stop-at-failure 1"}),
              wire->heard);
    EXPECT_EQ((Lines{"Waiting", "Left out", "Left out"}), states());
    run(1);
    say(Kind::finished, "complete");
    ASSERT_TRUE(titleBecomes("Done - 1 of 3 - Tool"));
    EXPECT_FALSE(enabled("cmdRunFailed"));
    click(*frame, "cmdGoOn");
    EXPECT_EQ("run 2-3", wire->heard[7]);
}

TEST_F(RunWindow, ARunnerThatIsGoneIsTold) {
    open(2);
    start(1);
    wire->open = false;
    ASSERT_TRUE(titleBecomes("Broken off - 1 of 2 - Tool"));
    EXPECT_EQ((Lines{"Broken off", "Left out"}), states());
    EXPECT_EQ(0U, message().find("The program that ran the jobs is gone"));
    rows().Select(1);
    click(*frame, "cmdRunFrom");
    EXPECT_EQ("run 2", wire->heard[6]);
}

TEST_F(RunWindow, AnUnfinishedRunGoesOnOrStartsOverOrNeither) {
    const std::pair<int, const char*> answers[] = {
        {wxID_YES, "run 2-3"}, {wxID_NO, "run 1-3"}, {wxID_CANCEL, "stop-now"}};
    for (const auto& [answer, heard] : answers) {
        wire = std::make_shared<Wire>();
        modals.choices = {answer};
        open(3, Kind::job);
        wire->said.push_back({Kind::earlierEnd, 1, 1000, 100});
        say(Kind::mayResume);
        ASSERT_TRUE(becomesTrue([&] { return !wire->heard.empty(); }));
        EXPECT_EQ(Lines{heard}, wire->heard);
        delete frame;
    }
    EXPECT_EQ(3U, modals.messages.size());
}

TEST_F(RunWindow, ClosingAsksWhileJobsRun) {
    open(1);
    start(1);
    ASSERT_TRUE(becomesTrue([&] { return states() == Lines{"Running"}; }));
    EXPECT_EQ(std::nullopt, endOf([&] { click(*frame, "cmdClose"); }));
    EXPECT_TRUE(frame->IsShown());
    modals.choices = {wxID_NO};  // they go on
    EXPECT_EQ(0, endOf([&] { frame->Close(); }));
    EXPECT_EQ(Lines(), wire->heard);

    wire = std::make_shared<Wire>();
    open(1);
    modals.choices = {wxID_YES};
    EXPECT_EQ(0, endOf([&] { frame->Close(); }));
    EXPECT_EQ(Lines{"stop-now"}, wire->heard);
}

TEST_F(RunWindow, ItClosesWhenAllWentWellIfThatIsWanted) {
    open(1);
    check("chkCloseWhenWell", true);
    run(1, 1);
    say(Kind::finished, "complete");
    ASSERT_TRUE(titleBecomes("1 failed - 1 of 1 - Tool"));
    EXPECT_TRUE(frame->IsShown());
    delete frame;

    wire = std::make_shared<Wire>();
    open(1);
    EXPECT_TRUE(control<wxCheckBox>(*frame, "chkCloseWhenWell").GetValue());
    run(1);
    say(Kind::finished, "complete");
    EXPECT_EQ(0, endOf([&] { becomesTrue([&] { return loadedWindow("frmRun") == nullptr; }); }));
}

TEST_F(RunWindow, TheWholeOutputIsSaved) {
    open(1);
    for (int i = 0; i < 9; ++i) written += std::string(1'000'000, 'x');
    run(1);
    say(Kind::finished, "complete");
    ASSERT_TRUE(titleBecomes("Done - 1 of 1 - Tool"));
    windows.fileAnswers = {inDirectory("output.txt"), inDirectory("saved.txt")};
    modals.yesNo = {true};
    click(*frame, "cmdSaveOutput");
    ASSERT_EQ(2U, modals.messages.size());
    EXPECT_TRUE(modals.messages[1].ends_with("It is the file of the output itself.")) << modals.messages[1];
    click(*frame, "cmdSaveOutput");
    EXPECT_TRUE(becomesTrue([&] { return message().starts_with("The output is saved as"); })) << message();
    EXPECT_EQ(written, readFile("saved.txt"));
}

TEST_F(RunWindow, ABurstOfMessagesIsTakenInSlices) {
    const auto burst = std::make_shared<Wire>();
    burst->said.assign(100'000, {.kind = Kind::job, .text = "true"});
    RunSession session(std::make_unique<FakeLink>(burst), {});
    session.poll();
    EXPECT_LT(session.rows().size(), 50'000U);
    burst->said.push_back({.kind = Kind::ready});
    session.poll();
    EXPECT_EQ(1U, burst->said.size());  // left where it is until there is room for it
    open(100'000);
    for (std::size_t job = 1; job <= 100'000; ++job) {
        wire->said.push_back({Kind::started, job, 1000, 0, 0});
        wire->said.push_back({Kind::ended, job, 1000, 1, 0, 0});
    }
    say(Kind::finished, "complete");
    ASSERT_TRUE(titleBecomes("Done - 100000 of 100000 - Tool"));
    EXPECT_EQ(100'000U, rows().selectedJob());
}

}  // namespace
}  // namespace brasquelin
