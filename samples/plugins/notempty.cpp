// A check: stops the run when a folder is missing or empty. It answers in "notempty.var" beside itself.
#include <filesystem>
#include <fstream>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: notempty FOLDER\n";
        return 2;
    }
    std::error_code error;
    const bool filled = std::filesystem::is_directory(argv[1], error) && !std::filesystem::is_empty(argv[1], error);
    std::ofstream answer(std::filesystem::path{argv[0]}.replace_extension(".var"));
    answer << "return = " << (filled && !error ? "true" : "false") << "\n";
    return answer.flush() ? 0 : 1;
}
