/// Saves two contents over one file in turn until it is killed: saver FILE SIZE.
#include "platform/files.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    std::vector<std::uint8_t> bytes(std::strtoul(argv[2], nullptr, 10), 'A');
    for (;;) {
        if (const auto error = lumrake::WriteWholeFile(QString::fromLocal8Bit(argv[1]), bytes)) {
            std::fprintf(stderr, "%s\n", qPrintable(*error));
            return 1;
        }
        std::fill(bytes.begin(), bytes.end(), bytes[0] == 'A' ? 'B' : 'A');
    }
}
