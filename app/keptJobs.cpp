#include "app/keptJobs.h"

#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "app/jobList.h"
#include "app/jobListEditing.h"
#include "app/jobStatus.h"
#include "platform/files.h"
#include "platform/keptFiles.h"
#include "platform/reporting.h"
#include "text/runTimeError.h"
#include "text/substitution.h"

namespace brasquelin {

KeptJobs keptJobs;

namespace {

using Json = nlohmann::json;

constexpr std::string_view keptStart = "joblist";

std::vector<std::string> readJobs(const std::string& file) {
    try {
        return Json::parse(readFileBytes(file)).at("jobs");
    } catch (const Json::exception&) {
        throw RunTimeError(ErrorNumber::deviceError, file).because("It holds no kept job list.");
    }
}

void writeJobs() {
    if (keptJobs.file.empty()) keptJobs.file = unusedKeptFile(keptStart);
    const Json all{{"jobs", jobList.lines()}};
    writeFile(keptJobs.file, all.dump(0, ' ', false, Json::error_handler_t::replace) + "\n");
}

/// The file may have gone by another start of the program, which was offered it.
bool isKept() {
    return keptJobs.revision == jobList.revision() && !keptJobs.file.empty() && fileExists(keptJobs.file);
}

void keep() {
    if (!jobListIsWork()) return discardKeptJobs(std::exchange(keptJobs.file, {}));
    if (isKept()) return;
    writeJobs();
    keptJobs.revision = jobList.revision();
}

}  // namespace

void keepJobs() {
    if (keptJobs.hasFailed) return keepJobsSilently();
    keptJobs.hasFailed = !reporting(keptJobs.file, keep);
}

void keepJobsSilently() noexcept {
    try {
        keep();
    } catch (const std::exception&) {  // whoever could be told has gone
    }
}

void leaveKeptJobs() {
    keptJobs.reset();
    limitKeptFiles(keptStart);
}

std::optional<KeptJobsOffer> keptJobsOffer() {
    const auto files = keptFilesBut(keptStart, keptJobs.file);
    if (files.empty()) return std::nullopt;
    const std::string& file = files.front();
    try {
        const std::size_t count = readJobs(file).size();
        const std::string jobs = jobCountText(count, count) + (count == 1 ? " was" : " were");
        return KeptJobsOffer{file, jobs + " kept from a list that you worked on."};
    } catch (const std::exception&) {
        return KeptJobsOffer{file, "'" + fileNameOf(file) + "', which keeps a job list, cannot be read.", false};
    }
}

bool restoreKeptJobs(const std::string& file) {
    return reporting(file, [&] {
        insertJobs(jobList.size(), readJobs(file), "Restore");
        keep();
        discardKeptJobs(file);
    });
}

void discardKeptJobs(const std::string& file) {
    if (!file.empty()) deleteFile(file);
}

}  // namespace brasquelin
