// A plugin: answers "date" (2026-01-31), "time" (23-59-58, fit for a file's name) and "weekday" (1 is Monday) in
// "today.var" beside itself.
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iomanip>

int main(int, char** argv) {
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    std::ofstream answer(std::filesystem::path{argv[0]}.replace_extension(".var"));
    answer << std::put_time(&local, "date = %Y-%m-%d\ntime = %H-%M-%S\nweekday = %u\n");
    return answer.flush() ? 0 : 1;
}
