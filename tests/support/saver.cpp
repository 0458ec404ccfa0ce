// Saves again and again until it is killed: saver config|profile|values DIRECTORY [FIRST [once]]. Each version holds a
// number of its own everywhere, so that half a file tells itself, and so do two that are mixed.
#include <cstdlib>
#include <string>
#include <string_view>

#include "config/configFile.h"
#include "editor/profileDocument.h"
#include "platform/paths.h"
#include "vars/rememberedValues.h"

namespace {

using namespace brasquelin;

void saveConfig(const std::string& number) {
    ConfigFields fields;
    for (int i = 0; i < 255; ++i) {
        fields.variables.push_back("v" + std::to_string(i) + "=" + std::string(100, 'x') + "number" + number);
    }
    writeConfig(configFilePath(), fields);
}

void saveProfile(const std::string& number) {
    ProfileDocument document;
    document.profileName = "number" + number;
    for (int i = 0; i < 600; ++i) document.listCommand.push_back(".text=" + std::string(100, 'x') + "number" + number);
    saveDocument(document, joinPath(programDirectory(), "saved.bqp"));
}

void rememberNumber(const std::string& number) {
    std::string value;
    for (int i = 0; i < 200; ++i) value += number + ";";
    rememberValue("k" + number, value);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const std::string_view kind = argv[1];
    brasquelin::setProgramDirectory(argv[2]);
    const auto save = kind == "config" ? saveConfig : kind == "profile" ? saveProfile : rememberNumber;
    for (int number = argc > 3 ? std::atoi(argv[3]) : 0;; ++number) {
        save(std::to_string(number));
        if (argc > 4) return 0;
    }
}
