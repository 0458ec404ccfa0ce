// A program with several jobs for the tests of the whole program, told apart by the file name it was copied to:
// "answer" and "veto" are a plugin and a check, "sleeper" is a launcher that does not end by itself.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

int main(int argc, char** argv) {
    wchar_t name[MAX_PATH];
    GetModuleFileNameW(nullptr, name, MAX_PATH);
    const std::filesystem::path program = name;
    std::ofstream answer(std::filesystem::path(program).replace_extension(L".var"), std::ios::binary);
    if (program.stem() == L"sleeper") {
        answer << GetCurrentProcessId();
        answer.close();
        Sleep(60000);
    } else if (program.stem() == L"veto") {
        answer << "return = " << (argc > 1 ? argv[1] : "") << "\r\n";
    } else {
        answer << "count = " << argc - 1 << "\r\nfirst = " << (argc > 1 ? argv[1] : "") << "\r\n";
    }
    return 0;
}
