#include "app/keptJobs.h"

#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "app/startUp.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "support/programTest.h"
#include "text/substitution.h"

namespace brasquelin {
namespace {

using Lines = std::vector<std::string>;

class KeptJobsTest : public ProgramTest {
  protected:
    KeptJobsTest() { resetTables(); }
    ~KeptJobsTest() override { resetTables(); }

    /// The window goes, and the program starts again.
    static std::string offerAfterRestart() {
        keepJobs();
        leaveKeptJobs();
        resetTables();
        const auto offer = keptJobsOffer();
        return offer ? offer->text : "";
    }
};

const std::string twoWere = "2 jobs were kept from a list that you worked on.";

TEST_F(KeptJobsTest, AListComesBackIfSomeoneWorkedOnIt) {
    const std::string odd = "\xC3\xA9\t\"a\rb\\";
    jobList.append(odd);
    jobList.append("b");
    EXPECT_EQ("", offerAfterRestart()) << "it came from profiles alone";
    for (const auto& line : {odd, std::string("b")}) jobList.append(line);
    moveJobsUp({1});
    keepJobs();
    EXPECT_EQ(std::nullopt, keptJobsOffer()) << "it is in the window still";
    EXPECT_EQ(twoWere, offerAfterRestart());

    ASSERT_TRUE(restoreKeptJobs(keptJobsOffer()->file));
    EXPECT_EQ((Lines{"b", odd}), jobList.lines());
    EXPECT_EQ(std::nullopt, keptJobsOffer());
    EXPECT_EQ(twoWere, offerAfterRestart()) << "it was not saved since";
    restoreKeptJobs(keptJobsOffer()->file);
    undoJobStep();
    EXPECT_EQ("", offerAfterRestart()) << "it was taken back by hand";
}

TEST_F(KeptJobsTest, ListsThatAreNotRestoredWaitEachInAFileOfItsOwn) {
    insertJobs(0, {"one"}, "Paste");
    EXPECT_EQ("1 job was kept from a list that you worked on.", offerAfterRestart());
    insertJobs(0, {"two", "three"}, "Paste");
    keepJobs();
    EXPECT_EQ("joblist.kept", fileNameOf(keptJobsOffer()->file));
    const std::string own = keptJobs.file;
    deleteFile(own);  // as another start may, that was offered it
    EXPECT_EQ(twoWere, offerAfterRestart());
    discardKeptJobs(own);
    EXPECT_TRUE(exists("joblist.kept"));
    writeBytes("joblist.kept", "{\"jobs\": 1}");
    EXPECT_EQ("'joblist.kept', which keeps a job list, cannot be read.", keptJobsOffer()->text);
    EXPECT_FALSE(restoreKeptJobs(keptJobsOffer()->file));
    EXPECT_TRUE(jobList.empty());
    EXPECT_EQ(1U, messages().size());
}

TEST_F(KeptJobsTest, WhatCannotBeKeptIsToldOnce) {
    setProgramDirectory(folder() + "/nowhere");
    insertJobs(0, {"one"}, "Paste");
    keepJobs();
    insertJobs(0, {"two"}, "Paste");
    keepJobs();
    EXPECT_EQ(1U, messages().size());
}

}  // namespace
}  // namespace brasquelin
