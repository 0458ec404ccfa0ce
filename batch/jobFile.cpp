#include "batch/jobFile.h"

#include <algorithm>

#include "platform/codePages.h"
#include "platform/files.h"
#include "text/runTimeError.h"
#include "text/text.h"

namespace brasquelin {

std::vector<std::string> readJobs(const std::string& path) {
    const std::string bytes = readFileBytes(path);
    std::vector<std::string> jobs;
    int number = 0;
    for (const auto line : split(bytes, "\n")) {
        ++number;
        if (line.find('\0') != std::string_view::npos) throw RunTimeError(ErrorNumber::pathFileAccess, path, number);
        std::string job(line);
        job.erase(std::remove(job.begin(), job.end(), '\r'), job.end());
        if (job.starts_with("//") || job.find_first_not_of(" \t") == std::string::npos) continue;
        jobs.push_back(std::move(job));
    }
    return jobs;
}

std::string jobText(std::string_view line) {
    return decodeOem(line);
}

}  // namespace brasquelin
