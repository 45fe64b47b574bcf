/// What a tick of a playing animation costs: drawing a frame of 256 x 192 pixels into the device context,
/// beside the painting of its exposure at 4:1, which follows on every screen. Quote ratios of one run.
#include "animation/animation_record.h"
#include "animation/stepping.h"
#include "platform/picture_box.h"
#include "shell/settings.h"

#include <QImage>

#include <benchmark/benchmark.h>

namespace {

using namespace lumrake;

struct Playing {
    Playing() {
        SetDefaultPalette(settings);
        record.iWidth = 256;
        record.iLines = 192;
        record.iZoom = 3;
        record.lOffset = 27;
        record.iFrames = 7;
        record.lStep = 6144;
        record.iRepeat = kPingPong;
        record.byAttribute = 56;
        for (std::size_t i = 0; i < memory.size(); ++i) {
            memory[i] = static_cast<std::uint8_t>(i * 37 + i / 253);
        }
        picture.resize(4 * 256, 4 * 192);
    }

    void Step() {
        NextFrame(state, record);
        lmk::zxShowMem(&picture.hDC(), memory.data(), FrameOffset(record, state.iCurrentFrame),
                       static_cast<std::int32_t>(memory.size()), record.iWidth, record.iLines, 1,
                       record.iZoom * 16 | record.iMode, record.byAttribute, settings.lPalette.data());
    }

    SettingsRecord settings;
    AnimationRecord record;
    PlayState state;
    std::vector<std::uint8_t> memory = std::vector<std::uint8_t>(49179);
    PictureBox picture;
};

void AnimationStep(benchmark::State& loop) {
    Playing playing;
    for (auto _ : loop) {
        playing.Step();
        benchmark::ClobberMemory();
    }
}

void AnimationPaint(benchmark::State& loop) {
    Playing playing;
    playing.Step();
    QImage screen(playing.picture.size(), QImage::Format_RGB32);
    for (auto _ : loop) {
        playing.picture.render(&screen, {}, {}, {});
        benchmark::ClobberMemory();
    }
}

BENCHMARK(AnimationStep)->UseRealTime();
BENCHMARK(AnimationPaint)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
