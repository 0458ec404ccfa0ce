// A plugin: lists the files of a folder, or all files with the ending of the one that is named. It answers in
// "listfiles.var" beside itself: "files", how many there are, and for each number "file1" with its path and "name1"
// with its name without ending. "left" counts those beyond the numbers that there is room for. Without arguments it
// answers nothing, so a profile can register it first and tell it the folder later.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr std::size_t most = 120;  // a profile keeps 256 answers

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& chosen) {
    const bool isFolder = std::filesystem::is_directory(chosen);
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(isFolder ? chosen : chosen.parent_path())) {
        const bool isWanted = isFolder || entry.path().extension() == chosen.extension();
        if (isWanted && entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void answer(std::ostream& to, const std::vector<std::filesystem::path>& files) {
    const std::size_t listed = std::min(files.size(), most);
    to << "files = " << listed << "\nleft = " << files.size() - listed << "\n";
    for (std::size_t i = 0; i < listed; ++i) {
        to << "file" << i + 1 << " = " << files[i].generic_string() << "\n";
        to << "name" << i + 1 << " = " << files[i].stem().string() << "\n";
    }
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc > 2) {
        std::cerr << "Usage: listfiles [FOLDER or FILE]\n";
        return 2;
    }
    std::vector<std::filesystem::path> files;
    if (argc == 2) {
        files = filesOf(argv[1]);
        // No answer at all: the profile stops here, as there is nothing that it could do.
        if (files.empty()) return 1;
    }
    std::ofstream result(std::filesystem::path{argv[0]}.replace_extension(".var"));
    if (argc == 2) answer(result, files);
    return result.flush() ? 0 : 1;
} catch (const std::filesystem::filesystem_error& error) {
    std::cerr << "listfiles: " << error.what() << "\n";
    return 1;
}
