#include "app/jobFiles.h"

#include <algorithm>
#include <utility>

#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "app/jobStatus.h"
#include "app/keptJobs.h"
#include "platform/codePages.h"
#include "platform/desktop.h"
#include "platform/executableFile.h"
#include "platform/files.h"
#include "platform/reporting.h"
#include "platform/textFiles.h"
#include "text/runTimeError.h"
#include "text/substitution.h"
#include "text/text.h"

namespace brasquelin {

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view fileTypes = "Batch files|*.bat|Shell scripts|*.sh";
constexpr std::string_view openedTypes = "Lists of jobs|*.bat;*.cmd;*.sh;*.txt|All files|*.*";

// One shell takes the lines in turn. What goes for the lines is in the runner of batch files, too.
constexpr std::string_view scriptHead = R"(#!/bin/sh
# A list of jobs, one a line, made by Brasquelin. Each is shown, then run, all by this one shell.
brasquelin_return=$(printf '\r')
while IFS= read -r brasquelin_line <&9; do
    while :; do
        case $brasquelin_line in
            *"$brasquelin_return"*)
                brasquelin_line=${brasquelin_line%%"$brasquelin_return"*}${brasquelin_line#*"$brasquelin_return"} ;;
            *) break ;;
        esac
    done
    case $brasquelin_line in
        "" | //*) continue ;;
    esac
    printf "%s\n" "$brasquelin_line"
    # "command" keeps a syntax error in one line from ending them all.
    command eval "$brasquelin_line" 9<&-
done 9<<')";

/// The line behind the last job. No job is the same.
std::string endMark() {
    std::string mark = "BRASQUELIN_JOBS";
    const auto isJob = [](const std::string& text) {
        for (std::size_t job = 0; job < jobList.size(); ++job) {
            if (jobList.line(job) == text) return true;
        }
        return false;
    };
    while (isJob(mark)) mark += "_";
    return mark;
}

std::string joined(std::string_view lineEnd) {
    std::string text;
    for (std::size_t job = 0; job < jobList.size(); ++job) text.append(jobList.line(job)).append(lineEnd);
    return text;
}

std::string scriptText() {
    const std::string mark = endMark();
    return std::string(scriptHead) + mark + "'\n" + joined("\n") + mark + "\n";
}

/// The lines as they were written: a carriage return within one is kept.
Lines linesOf(std::string_view text, std::string_view lineEnd) {
    if (text.empty()) return {};
    if (text.ends_with('\n')) text.remove_suffix(1);
    Lines lines;
    for (auto line : split(text, "\n")) {
        if (lineEnd == "\r\n" && line.ends_with('\r')) line.remove_suffix(1);
        lines.emplace_back(line);
    }
    return lines;
}

[[noreturn]] void raiseForeign(const std::string& path) {
    throw RunTimeError(ErrorNumber::deviceError, path).because("It is no list of jobs that this program has saved.");
}

Lines jobsOfScript(const std::string& path, std::string_view text) {
    if (!text.starts_with(scriptHead)) raiseForeign(path);
    text.remove_prefix(scriptHead.size());
    const auto quote = text.find("'\n");
    if (quote == std::string_view::npos) raiseForeign(path);
    const std::string_view mark = text.substr(0, quote);
    Lines lines = linesOf(text.substr(quote + 2), "\n");
    if (lines.empty() || lines.back() != mark) raiseForeign(path);
    lines.pop_back();
    return lines;
}

void requireNoNul(const std::string& path, const Lines& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].find('\0') != std::string::npos) raiseNul(path, static_cast<int>(i) + 1);
    }
}

std::string countOf(std::size_t jobs) {
    return jobCountText(jobs, jobs);
}

}  // namespace

JobFileKind kindOfJobFile(std::string_view path) {
    if (endsWithIgnoringCase(path, ".bat") || endsWithIgnoringCase(path, ".cmd")) return JobFileKind::batch;
    if (endsWithIgnoringCase(path, ".sh")) return JobFileKind::script;
    if (endsWithIgnoringCase(path, ".txt")) return JobFileKind::text;
    return JobFileKind::none;
}

void writeJobFile(const std::string& path) {
    if (kindOfJobFile(path) != JobFileKind::script) return saveFile(path, encodeOem(joined("\r\n")));
    saveFile(path, scriptText());
    makeExecutable(path);
}

std::vector<std::string> readJobFile(const std::string& path) {
    const JobFileKind kind = kindOfJobFile(path);
    Lines lines;
    if (kind == JobFileKind::script) {
        lines = jobsOfScript(path, readFileBytes(path, mostTextBytes));
    } else if (kind == JobFileKind::batch) {
        lines = linesOf(decodeOem(readFileBytes(path, mostTextBytes)), "\r\n");
    } else {
        lines = withoutBlank(readTextFile(path)->lines);
    }
    requireNoNul(path, lines);
    return lines;
}

void saveJobsAs() {
    const std::string path =
        desktop().askFile({FileDialogMode::save, "Save the list as", std::string(fileTypes), "jobs", {}});
    if (path.empty()) return;
    const bool saved = reporting(path, [&] { writeJobFile(path); });
    if (!saved) return;
    jobHistory.markSaved();
    keepJobs();
    noteJobs(countOf(jobList.size()) + " saved as '" + fileNameOf(path) + "'");
}

void openJobs() {
    const std::string path =
        desktop().askFile({FileDialogMode::open, "Open a list of jobs", std::string(openedTypes), "", {}});
    if (!path.empty()) appendJobFile(path);
}

bool appendJobFile(const std::string& path) {
    return reporting(path, [&] {
        const bool isAll = jobList.empty() && jobHistory.isSaved();
        const Lines lines = readJobFile(path);
        insertJobs(jobList.size(), lines, "Open");
        if (isAll) jobHistory.markSaved();
        noteJobs(countOf(lines.size()) + " read from '" + fileNameOf(path) + "'");
    });
}

}  // namespace brasquelin
