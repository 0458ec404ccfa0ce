#include "support/programRun.h"

#include "platform/paths.h"

namespace brasquelin {

ProgramRun::ProgramRun() : shortDirectory_(shortPath(utf8(path()))) {
    const std::filesystem::path built = BRASQUELIN_PROGRAM;
    std::filesystem::copy_file(built, path() / built.filename());
    writeLines("Brasquelin.ini", "#Brasquelin Initialize\n[config]\n[/config]\n[var]\n[/var]");
}

ProgramRun::~ProgramRun() {
    endByForce();
}

bool ProgramRun::exists(std::string_view name) const {
    return std::filesystem::exists(path() / fromUtf8(name));
}

void ProgramRun::writeLineLibrary() const {
    writeLines("line.bqs",
               "#Brasquelin Library  line\n[var]\ntext\n.Type=Text\n.Info=A line\n[/var]\n"
               "[command]\ntype=shell\ncommand=$text$\n[/command]");
}

std::string ProgramRun::writeProfile(std::string_view name, std::string_view library, std::string_view body) const {
    writeLineLibrary();
    return writeLines(name, "#Brasquelin Profile Test\n[library]\n:include $exepath$/line.bqs\n" +
                                std::string(library) +
                                "\n[/library]\n[var]\nx\n.Type=Text\n.Info=Anything\n[/var]\n[profile]\n" +
                                std::string(body) + "\n[/profile]");
}

void ProgramRun::copyHelper(std::string_view name) const {
    std::filesystem::copy_file(BRASQUELIN_HELPER, path() / fromUtf8(name));
}

}  // namespace brasquelin
