// A program with several jobs for the tests of the whole program, told apart by the file name it was copied to:
// "answer" and "veto" are a plugin and a check, "sleeper" is a launcher that does not end by itself.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

int main(int argc, char** argv) {
    const std::filesystem::path program = argv[0];
    std::ofstream answer(std::filesystem::path(program).replace_extension(".var"), std::ios::binary);
    if (program.stem() == "sleeper") {
        answer << "started" << std::flush;
        std::this_thread::sleep_for(std::chrono::minutes(1));
    } else if (program.stem() == "veto") {
        answer << "return = " << (argc > 1 ? argv[1] : "") << "\r\n";
    } else {
        answer << "count = " << argc - 1 << "\r\nfirst = " << (argc > 1 ? argv[1] : "") << "\r\n";
    }
    return 0;
}
