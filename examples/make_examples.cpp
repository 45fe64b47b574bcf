// Writes the example files, sample.sna and walker.anm, into the directory given as the one argument. Every
// run gives the same bytes. Exit code 0 when both files are there, 1 with a message on stderr when not.

#include "snapshot.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

using lumrake::examples::Bytes;
namespace fs = std::filesystem;

// Writes under a temporary name beside `path`, so that a file under its own name is always whole. On failure
// the temporary file is gone and an exception tells why.
void WriteFile(const fs::path& path, const Bytes& bytes) {
    fs::path temporary = path;
    temporary += ".part";
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    for (const std::uint8_t byte : bytes) {
        out.put(static_cast<char>(byte));
    }
    out.close();
    std::error_code error;
    if (!out) {
        fs::remove(temporary, error);
        throw std::runtime_error("cannot write " + temporary.string());
    }
    fs::rename(temporary, path, error);
    if (error) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw std::runtime_error("cannot write " + path.string() + ": " + error.message());
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_examples DIRECTORY\n";
        return 1;
    }
    try {
        const fs::path directory = argv[1];
        const Bytes snapshot = lumrake::examples::MakeSnapshot();
        const Bytes animation = lumrake::examples::MakeAnimation();
        fs::create_directories(directory);
        WriteFile(directory / "sample.sna", snapshot);
        WriteFile(directory / "walker.anm", animation);
    } catch (const std::exception& error) {
        std::cerr << "make_examples: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
