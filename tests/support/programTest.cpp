#include "support/programTest.h"

#include "app/startUp.h"
#include "config/configFile.h"
#include "engine/runProfile.h"
#include "platform/paths.h"
#include "platform/textFiles.h"

namespace brasquelin {

ProgramTest::ProgramTest() : startedIn_(std::filesystem::current_path()) {
    setProgramDirectory(utf8(directory_.path()));
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
}

void ProgramTest::write(const std::string& name, const std::vector<std::string>& lines) const {
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    writeBytes(name, bytes);
}

void ProgramTest::writeBytes(const std::string& name, const std::string& bytes) const {
    directory_.write(name, bytes);
}

void ProgramTest::writeText(const std::string& name, const std::string& lines) const {
    directory_.writeLines(name, lines);
}

void ProgramTest::writeSayLibrary(const std::string& name) const {
    writeText(name,
              "#Brasquelin Library  Say\n[var]\ntext\n.Type=Text\n.Info=none\n[/var]\n"
              "[command]\ntype=shell\ncommand=echo $text$\n[/command]");
}

std::string ProgramTest::read(const std::string& name) const {
    return directory_.read(name);
}

bool ProgramTest::exists(const std::string& name) const {
    return std::filesystem::exists(directory_.path() / fromUtf8(name));
}

void ProgramTest::remove(const std::string& name) const {
    std::filesystem::remove_all(directory_.path() / fromUtf8(name));
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
