#include "support/programWorld.h"

#include <utility>

#include "app/startUp.h"
#include "engine/runProfile.h"
#include "platform/paths.h"

namespace brasquelin {

ProgramWorld::ProgramWorld() : startedIn_(std::filesystem::current_path()) {
    setProgramDirectory(utf8(directory.path()));
    resetTables();
    setDesktop(desktop);
    setClock(&clock);
    setProcessTable(&processes);
    setJobSink([this](std::string_view line) { jobs.emplace_back(line); });
}

ProgramWorld::~ProgramWorld() {
    static ScriptedDesktop afterwards;  // nothing may reach a desktop that is gone
    setDesktop(afterwards);
    setClock(nullptr);
    setProcessTable(nullptr);
    setJobSink({});
    resetTables();
    setProgramDirectory({});
    std::filesystem::current_path(startedIn_);
}

void ProgramWorld::writeSayLibrary(std::string_view name) const {
    directory.writeLines(name,
                         "#Brasquelin Library  Say\n[var]\ntext\n.Type=Text\n.Info=none\n[/var]\n"
                         "[command]\ntype=shell\ncommand=echo $text$\n[/command]");
}

}  // namespace brasquelin
