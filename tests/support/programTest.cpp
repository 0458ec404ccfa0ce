#include "support/programTest.h"

#include <fstream>
#include <iterator>
#include <random>

#include "app/startUp.h"
#include "config/configFile.h"
#include "engine/runProfile.h"
#include "platform/paths.h"
#include "platform/textFiles.h"

namespace brasquelin {

namespace {

std::filesystem::path newDirectory() {
    std::random_device random;
    for (;;) {
        const auto path = std::filesystem::temp_directory_path() / ("brasquelin-test-" + std::to_string(random()));
        if (std::filesystem::create_directory(path)) return std::filesystem::canonical(path);
    }
}

}  // namespace

ProgramTest::ProgramTest() : directory_(newDirectory()), startedIn_(std::filesystem::current_path()) {
    setProgramDirectory(directory_.string());
    folder_ = exeDirectory();
    resetTables();
    setDesktop(desktop_);
    setClock(&clock_);
    setProcessTable(&processes_);
    setJobSink([this](std::string line) { jobs_.push_back(std::move(line)); });
}

ProgramTest::~ProgramTest() {
    static ScriptedDesktop afterwards;  // nothing may reach a desktop that is gone
    setDesktop(afterwards);
    setClock(nullptr);
    setProcessTable(nullptr);
    setJobSink({});
    resetTables();
    setProgramDirectory({});
    std::filesystem::current_path(startedIn_);
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

void ProgramTest::write(const std::string& name, const std::vector<std::string>& lines) const {
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    writeBytes(name, bytes);
}

void ProgramTest::writeBytes(const std::string& name, const std::string& bytes) const {
    const auto path = directory_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    forgetTextFiles();
}

std::string ProgramTest::read(const std::string& name) const {
    std::ifstream file(directory_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool ProgramTest::exists(const std::string& name) const {
    return std::filesystem::exists(directory_ / name);
}

void ProgramTest::remove(const std::string& name) const {
    std::filesystem::remove_all(directory_ / name);
    forgetTextFiles();
}

void ProgramTest::setGlobals(const std::vector<NamedValue>& variables) {
    for (std::size_t i = 0; i < variables.size(); ++i) settings.globalVars[i] = variables[i];
    settings.globalVarCount = std::to_string(variables.size());
}

ErrorNumber ProgramTest::errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.number();
    }
    ADD_FAILURE() << "no run-time error";
    return ErrorNumber::deviceError;
}

int ProgramTest::exitStatusOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const EndProgram& end) {
        return end.exitStatus();
    }
    return -1;
}

}  // namespace brasquelin
