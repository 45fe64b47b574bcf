/// Pixels per second of the two routines that every tool and every block operation comes through. A pass
/// reads or writes every pixel of a view of 256 x 192, in the order of a block operation.
#include "bench.h"

#include "snapshot/rules/document.h"

#include <string>
#include <vector>

namespace lumrake::bench {
namespace {

constexpr const char* kModes[] = {"Graphics", "Screen", "Text", "LineMasks", "ByteMasks"};

ViewNumbers View(std::int16_t mode, bool upsideDown) {
    ViewNumbers view;
    view.lFileLength = 49179;
    view.lOffset = 27;
    if (mode != kScreen && mode != kText) {
        view.iWidth = 64;
        view.iColumns = 4; // the same pixels in columns, which cost a division each
    }
    view.iMode = mode;
    view.iZoom = 3;
    view.iZoomFactor = 4;
    view.iUpsideDown = upsideDown ? 1 : 0;
    return view;
}

template <typename Pixel> void Walk(benchmark::State& state, const ViewNumbers& view, Pixel pixel) {
    const auto z = static_cast<float>(view.iZoomFactor);
    const auto right = static_cast<float>(view.ScreenWidth()),
               bottom = static_cast<float>(view.ScreenHeight());
    for (auto _ : state) {
        for (float Y = 0; Y < bottom; Y += z) {
            for (float X = 0; X < right; X += z) {
                pixel(X, Y);
            }
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * view.PictureWidth() * view.iLines);
}

const bool kRegistered = [] {
    for (std::int16_t mode = 0; mode < 5; ++mode) {
        const ViewNumbers view = View(mode, mode == kGraphics);
        Add(std::string("Pixels/Read") + kModes[mode], [view](benchmark::State& state) {
            const std::vector<std::uint8_t> memory(49179, 0x55);
            Walk(state, view,
                 [&](float X, float Y) { benchmark::DoNotOptimize(ReadPixel(memory, view, X, Y)); });
        });
        Add(std::string("Pixels/Write") + kModes[mode], [view](benchmark::State& state) {
            SnapshotDocument document;
            document.Open(MemoryBlock(49179));
            document.view = view;
            Walk(state, view, [&](float X, float Y) { document.WritePixel(PixelUnder(view, X, Y), 1); });
        });
    }
    return true;
}();

} // namespace
} // namespace lumrake::bench
