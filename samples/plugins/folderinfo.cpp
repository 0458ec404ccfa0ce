// A plugin: counts the files of a folder. It answers in "folderinfo.var" beside itself.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: folderinfo FOLDER\n";
        return 2;
    }
    std::uintmax_t files = 0;
    std::uintmax_t bytes = 0;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1], error)) {
        if (!entry.is_regular_file()) continue;
        ++files;
        bytes += entry.file_size();
    }
    std::ofstream answer(std::filesystem::path{argv[0]}.replace_extension(".var"));
    answer << "files = " << files << "\nbytes = " << bytes << "\n";
    return answer.flush() && !error ? 0 : 1;
}
