/// Any bytes under any view: what is drawn is what the rule for one pixel says, at any geometry, and a pixel that
/// is written is one bit. 21 bytes say offset, width, lines, columns, options and attribute; the rest is memory.
#include "display/lmk.h"
#include "fuzz/require.h"
#include "snapshot/rules/document.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

using namespace lumrake;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::int32_t numbers[5] = {};
    constexpr std::size_t kHead = sizeof numbers + 1;
    if (size < kHead) {
        return 0;
    }
    std::memcpy(numbers, data, sizeof numbers);
    const std::int32_t offset = numbers[0], width = numbers[1], lines = numbers[2], columns = numbers[3],
                       options = numbers[4];
    const std::uint8_t attribute = data[sizeof numbers];
    std::vector<std::uint8_t> memory(data + kHead, data + size); // of its exact size
    // Without memory any length shows nothing.
    const auto length = memory.empty() ? numbers[2] : static_cast<std::int32_t>(memory.size());

    ViewNumbers view;
    view.lFileLength = length;
    view.lOffset = offset;
    view.iWidth = static_cast<std::int16_t>(std::clamp(width, 8, 256) & ~7);
    view.iLines = static_cast<std::int16_t>(std::clamp(lines, 1, 512));
    view.iColumns = static_cast<std::int16_t>(std::clamp(columns, 1, 16));
    view.iMode = static_cast<std::int16_t>(options & 15);
    view.iZoom = static_cast<std::int16_t>(options >> 4 & 7);
    if (lmk::ZoomIndexToFactor(view.iZoom) == 0) {
        view.iZoom = 1;
    }
    view.iZoomFactor = static_cast<std::int16_t>(lmk::ZoomIndexToFactor(view.iZoom));
    view.iUpsideDown = (options & 128) != 0 ? 1 : 0;

    static lmk::DeviceContext context; // used again and again, as a window does
    std::int32_t palette[16];
    for (std::int32_t i = 0; i < 16; ++i) {
        palette[i] = i * 0x01020304;
    }
    const auto show = [&](lmk::DeviceContext* to) {
        return lmk::zxShowMem(to, memory.data(), offset, length, width, lines, columns, options, attribute,
                              palette);
    };
    Require(show(&context) == 1 && show(nullptr) == 0);
    Require(context.Picture().Width() == view.PictureWidth() && context.Picture().Height() == view.iLines);
    Require(context.Factor() == view.iZoomFactor);
    const auto z = static_cast<float>(view.iZoomFactor);
    const auto matches = [&](int x, int y) {
        const int bit = ReadPixel(memory, view, static_cast<float>(x) * z, static_cast<float>(y) * z);
        return context.Picture().PixelAt(x, y) == (bit != 0);
    };
    // Small pictures whole, large ones in places.
    std::minstd_rand random(static_cast<unsigned>(size) + attribute);
    const std::int32_t pixels = view.PictureWidth() * view.iLines;
    for (std::int32_t i = 0; i < std::min(pixels, 8192); ++i) {
        const std::int32_t at = pixels <= 8192 ? i : static_cast<std::int32_t>(random()) % pixels;
        Require(matches(at % view.PictureWidth(), at / view.PictureWidth()));
    }

    const int x = static_cast<int>(random()) % view.PictureWidth(),
              y = static_cast<int>(random()) % view.iLines;
    const auto before = memory;
    const auto X = static_cast<float>(x) * z, Y = static_cast<float>(y) * z;
    const std::int16_t value = attribute & 1;
    SnapshotDocument document;
    document.view = view;
    MemoryBlock block(memory.size());
    std::ranges::copy(memory, block.data());
    document.Open(std::move(block));
    const bool written = document.WritePixel(PixelUnder(view, X, Y), value);
    std::ranges::copy(document.Bytes(), memory.begin());
    Require(ReadPixel(memory, view, X, Y) == (written ? value : 0));
    int changed = 0;
    for (std::size_t i = 0; i < memory.size(); ++i) {
        changed += std::popcount(static_cast<unsigned>(memory[i] ^ before[i]));
    }
    Require(changed <= (written ? 1 : 0));
    context.SetClip({x, y, 1, 1});
    show(&context);
    context.ResetClip();
    Require(matches(x, y));
    Require(!PixelUnder(view, -1, Y) && !PixelUnder(view, X, static_cast<float>(view.ScreenHeight())));
    return 0;
}
