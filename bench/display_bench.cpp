/// What the display library costs, beside a copy of the same bytes.
#include "bench.h"

#include "display/lmk.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace lumrake::bench {
namespace {

using lmk::BitPicture;
using lmk::DeviceContext;

constexpr std::int32_t kPalette[16] = {0,        0xaa0000, 0x0000aa, 0xaa00aa, 0x00aa00, 0xaaaa00,
                                       0x00aaaa, 0xaaaaaa, 0,        0xff0000, 0x0000ff, 0xff00ff,
                                       0x00ff00, 0xffff00, 0x00ffff, 0xffffff};
constexpr std::uint8_t kAttribute = 0x38; // black on white
constexpr const char* kModes[] = {"Graphics", "Screen", "Text", "LineMasks", "ByteMasks"};
constexpr int kFlip = 128, kZoom1 = 16;

struct View {
    int width, lines, columns, mode;
    int pastEnd; // percent of the picture that lies past the end of the memory
    int options = kZoom1;
};

void ShowMem(benchmark::State& state, const View& view) {
    const int perPixelByte = view.mode >= 3 ? 2 : 1;
    const int bytes = view.width / 8 * view.lines * view.columns * perPixelByte;
    // An odd offset, as in real files; the memory ends with the view unless part of it lies past the end.
    constexpr int kOffset = 27;
    const auto memory = Noise(static_cast<std::size_t>(kOffset + bytes));
    const int length = kOffset + bytes * (100 - view.pastEnd) / 100;
    DeviceContext context;
    for (auto _ : state) {
        lmk::zxShowMem(&context, memory.data(), kOffset, length, view.width, view.lines, view.columns,
                       view.options | view.mode, kAttribute, kPalette);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * view.width / 8 * view.lines * view.columns);
}

void Copy(benchmark::State& state, std::size_t bytes) {
    const auto from = Noise(bytes + 27);
    std::vector<std::uint8_t> to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data() + 27, bytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

void ShowPixel(benchmark::State& state) {
    const auto memory = Noise(256 * 1024);
    DeviceContext context;
    const auto show = [&] {
        lmk::zxShowMem(&context, memory.data(), 0, 256 * 1024, 256, 512, 16, kZoom1, kAttribute, kPalette);
    };
    show();
    int at = 0;
    for (auto _ : state) {
        at = (at + 1) & 511;
        context.SetClip({at, at, 1, 1});
        show();
        context.ResetClip();
        benchmark::ClobberMemory();
    }
}

// ---- Expansion of an exposure of 800 x 600 in strips ----

constexpr int kWidth = 800, kHeight = 600, kStrip = 32;

void Expand(benchmark::State& state, int scale) {
    BitPicture picture;
    picture.Resize(4096, 512);
    const auto noise = Noise(512 * 512);
    for (int row = 0; row < 512; ++row) {
        std::memcpy(picture.Row(row), noise.data() + row * 512, 512);
    }
    // At 1:1 a picture is 512 lines high, so the exposure starts above it for the rows that it lacks.
    const int top = scale == 1 ? 512 - kHeight : 3, left = 5;
    std::vector<std::uint32_t> strip(static_cast<std::size_t>(kWidth * kStrip));
    for (auto _ : state) {
        for (int y = 0; y < kHeight; y += kStrip) {
            picture.Expand({left, top + y, kWidth, std::min(kStrip, kHeight - y)}, scale, strip.data(),
                           kWidth);
            benchmark::ClobberMemory();
        }
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 4);
}

/// The same exposure out of a picture of 32-bit colours of that size, into the same strip.
void CopyExposure(benchmark::State& state) {
    std::vector<std::uint32_t> picture(4096 * 640, 0xff123456), strip(kWidth * kStrip);
    for (auto _ : state) {
        for (int y = 0; y < kHeight; y += kStrip) {
            for (int row = 0; row < std::min(kStrip, kHeight - y); ++row) {
                std::memcpy(strip.data() + row * kWidth, picture.data() + (3 + y + row) * 4096 + 5,
                            kWidth * 4);
            }
            benchmark::ClobberMemory();
        }
    }
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 4);
}

const bool kRegistered = [] {
    const auto addView = [](const std::string& name, const View& view) {
        Add(name, [view](benchmark::State& state) { ShowMem(state, view); });
    };
    Add("Largest/memcpy", [](benchmark::State& state) { Copy(state, 256 * 1024); });
    for (const int mode : {0, 3, 4}) {
        addView(std::string("Largest/") + kModes[mode], {256, 512, 16, mode, 0});
    }
    for (int mode = 0; mode < 5; ++mode) {
        addView(std::string("Small/") + kModes[mode], {256, 192, 1, mode, 0});
    }
    for (const int mode : {0, 3, 4}) {
        addView(std::string("Narrow/") + kModes[mode], {8, 512, 16, mode, 50});
        addView(std::string("Narrow/") + kModes[mode] + "_wide", {256, 256, 1, mode, 0});
    }

    // Beside the table: what else the drawing and the painting are made of.
    addView("More/largest_flipped", {256, 512, 16, 0, 0, kZoom1 | kFlip});
    addView("More/largest_half_past_end", {256, 512, 16, 0, 50});
    for (const int width : {8, 16, 24, 32, 64, 120}) {
        addView("More/columns_of_" + std::to_string(width), {width, 512, 16, 0, 0});
    }
    Add("More/clipped_pixel", ShowPixel);
    Add("Expand/copy", CopyExposure);
    for (const int scale : {1, 2, 3, 4, 8, 16, 24, 32, 48}) {
        Add("Expand/" + std::to_string(scale), [scale](benchmark::State& state) { Expand(state, scale); });
    }
    return true;
}();

} // namespace
} // namespace lumrake::bench
