#include "app/jobFiles.h"

#include <filesystem>

#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "app/jobStatus.h"
#include "app/keptJobs.h"
#include "app/openDropped.h"
#include "app/openFile.h"
#include "app/startUp.h"
#include "support/programTest.h"

namespace brasquelin {
namespace {

using Lines = std::vector<std::string>;

class JobFiles : public ProgramTest {
  protected:
    JobFiles() { resetTables(); }
    ~JobFiles() override { resetTables(); }

    std::string inFolder(const std::string& name) const { return folder() + "/" + name; }
    static void list(const Lines& lines) {
        resetTables();
        for (const auto& line : lines) jobList.append(line);
    }
};

TEST_F(JobFiles, WhatIsSavedComesBackAsTheSameList) {
    const std::vector<Lines> lists{
        {},
        {""},
        {"echo a", "", "", "// no job", "  echo 'b' \"$HOME\" \\ %PATH%"},
        {"BRASQUELIN_JOBS", "BRASQUELIN_JOBS_", "'", "a\rb", "c\r", "\xC3\xA9"},
    };
    for (const auto& lines : lists) {
        for (const char* name : {"x.bat", "y.SH"}) {
            list(lines);
            writeJobFile(inFolder(name));
            EXPECT_EQ(lines, readJobFile(inFolder(name))) << name;
        }
    }
    write("lines.txt", {"one", " ", "", "two"});
    EXPECT_EQ((Lines{"one", "two"}), readJobFile(inFolder("lines.txt")));
}

TEST_F(JobFiles, WhatIsNoListOfJobsIsTold) {
    writeText("own.sh", "#!/bin/sh\necho a\n");
    writeBytes("nul.bat", std::string("a\r\nb\0c\r\n", 8));
    EXPECT_EQ(ErrorNumber::deviceError, errorOf([&] { readJobFile(inFolder("own.sh")); }));
    EXPECT_EQ(ErrorNumber::pathFileAccess, errorOf([&] { readJobFile(inFolder("nul.bat")); }));
    EXPECT_FALSE(appendJobFile(inFolder("missing.bat")));
    EXPECT_EQ(1U, messages().size());
    list({"a"});
    writeJobFile(inFolder("cut.sh"));
    const std::string whole = read("cut.sh");
    writeBytes("cut.sh", whole.substr(0, whole.size() - 3));
    EXPECT_EQ(ErrorNumber::deviceError, errorOf([&] { readJobFile(inFolder("cut.sh")); }));
}

TEST_F(JobFiles, SavingAsksForANameAndEndsWhatIsToBeKept) {
    list({"a", "b"});
    moveJobsUp({1});
    keepJobs();
    EXPECT_TRUE(exists("joblist.kept"));
    saveJobsAs();
    EXPECT_TRUE(exists("joblist.kept")) << "cancelled";
    answerFile(inFolder("jobs.bat"));
    saveJobsAs();
    EXPECT_EQ("b\r\na\r\n", read("jobs.bat"));
    EXPECT_FALSE(exists("joblist.kept"));
    EXPECT_EQ("2 jobs saved as 'jobs.bat'", activityText());
    undoJobStep();
    EXPECT_TRUE(jobListIsWork());
    EXPECT_EQ("", activityText());
}

TEST_F(JobFiles, OpeningAndDroppingAppend) {
    write("jobs.bat", {"one"});
    answerFile(inFolder("jobs.bat"));
    openJobs();
    EXPECT_FALSE(jobListIsWork()) << "it stands in that file";
    write("more.txt", {"two"});
    openDropped({inFolder("more.txt"), inFolder("Brasquelin.ini"), inFolder("jobs.bat")});
    EXPECT_EQ((Lines{"one", "two", "one"}), jobList.lines());
    EXPECT_TRUE(jobListIsWork());
    undoJobStep();
    EXPECT_EQ((Lines{"one", "two"}), jobList.lines());
    runState.running = true;
    openDropped({inFolder("more.txt"), inFolder("jobs.bat")});
    EXPECT_EQ(2U, jobList.size());
    EXPECT_EQ(1U, messages().size());
}

}  // namespace
}  // namespace brasquelin
