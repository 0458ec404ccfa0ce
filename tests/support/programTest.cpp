#include "support/programTest.h"

#include "app/startUp.h"
#include "config/configFile.h"
#include "platform/paths.h"
#include "platform/textFiles.h"

namespace brasquelin {

ProgramTest::ProgramTest() : folder_(exeDirectory()) {}

void ProgramTest::write(const std::string& name, const std::vector<std::string>& lines) const {
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    writeBytes(name, bytes);
}

void ProgramTest::writeBytes(const std::string& name, const std::string& bytes) const {
    world_.directory.write(name, bytes);
}

void ProgramTest::writeText(const std::string& name, const std::string& lines) const {
    world_.directory.writeLines(name, lines);
}

void ProgramTest::writeSayLibrary(const std::string& name) const {
    world_.writeSayLibrary(name);
}

std::string ProgramTest::read(const std::string& name) const {
    return world_.directory.read(name);
}

bool ProgramTest::exists(const std::string& name) const {
    return std::filesystem::exists(world_.directory.path() / fromUtf8(name));
}

void ProgramTest::remove(const std::string& name) const {
    std::filesystem::remove_all(world_.directory.path() / fromUtf8(name));
    forgetTextFiles();
}

void ProgramTest::setGlobals(const std::vector<NamedValue>& variables) {
    settings.globalVars.clear();
    for (const auto& variable : variables) settings.globalVars.append(variable);
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
