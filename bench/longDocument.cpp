// A profile of 100,000 lines opened and saved by the editor, beside a peer that copies its bytes.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "editor/profileDocument.h"
#include "platform/files.h"

namespace brasquelin {
namespace {

std::string inTemporary(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

std::string writeLongProfile() {
    std::string text = "#Brasquelin Profile Long\r\n\r\n\r\n[profile]\r\n\r\n";
    for (int i = 0; i < 25'000; ++i) text += "Title\r\n.first=$x$\r\n.second=2\r\n[not a tag]\r\n";
    std::string path = inTemporary("brasquelin-bench.bqp");
    writeFile(path, text + "\r\n[/profile]\r\n");
    return path;
}

void opensAndSaves(benchmark::State& state) {
    const std::string path = writeLongProfile();
    const std::string copy = inTemporary("brasquelin-bench-copy.bqp");
    ProfileDocument document;
    for (auto _ : state) {
        openDocument(document, path);
        saveDocument(document, copy);
    }
    for (const auto& file : {path, copy}) deleteFile(file);
}
BENCHMARK(opensAndSaves);

void peerCopiesTheBytes(benchmark::State& state) {
    const std::string path = writeLongProfile();
    const std::string copy = inTemporary("brasquelin-bench-copy.bqp");
    for (auto _ : state) saveFile(copy, readFileBytes(path));
    for (const auto& file : {path, copy}) deleteFile(file);
}
BENCHMARK(peerCopiesTheBytes);

}  // namespace
}  // namespace brasquelin
