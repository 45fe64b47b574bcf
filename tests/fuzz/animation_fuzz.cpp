/// An .ANM file of any bytes with any snapshot behind it: it is held for use, stepped in all ways and drawn.
/// The first 759 bytes are the record (a short input is filled up with 0), the rest is the snapshot.
#include "animation/rules/animation_record.h"
#include "animation/rules/stepping.h"
#include "display/lmk.h"
#include "fuzz/require.h"

#include <algorithm>
#include <cstring>
#include <vector>

using namespace lumrake;

namespace {

void Draw(lmk::DeviceContext& context, const AnimationRecord& record, const PlayState& state,
          const std::vector<std::uint8_t>& memory) {
    static constexpr std::int32_t kPalette[16] = {};
    lmk::zxShowMem(&context, memory.data(), FrameOffset(record, state.iCurrentFrame),
                   static_cast<std::int32_t>(memory.size()), record.iWidth, record.iLines, 1,
                   record.iUpsideDown * 128 | record.iZoom * 16 | record.iMode, record.byAttribute, kPalette);
    Require(context.Picture().Width() == record.iWidth && context.Picture().Height() == record.iLines);
    Require(context.Factor() == lmk::ZoomIndexToFactor(record.iZoom));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<std::uint8_t, kAnimationBytes> bytes{};
    const std::size_t head = std::min(size, bytes.size());
    std::copy_n(data, head, bytes.begin());
    const AnimationRecord read = DecodeAnimation(bytes);
    Require(EncodeAnimation(read) == bytes);

    const auto snapLength = static_cast<std::int32_t>(size - head);
    const AnimationRecord record = HeldForUse(read, snapLength);
    Require(HeldForUse(record, snapLength) == record);
    // Memory of its exact size, so that a read past its end is seen.
    const std::int32_t taken = std::min(snapLength, record.lFileLength);
    const std::vector<std::uint8_t> memory(data + head, data + head + taken);

    lmk::DeviceContext context;
    PlayState states[] = {{0, 1}, {static_cast<std::int16_t>(record.iFrames - 1), 1}};
    for (PlayState& state : states) {
        Draw(context, record, state, memory);
        // Runs forward and back of growing length, so that ends are met from both sides.
        for (int run = 1; run <= 8; ++run) {
            for (int step = 0; step < run; ++step) {
                run % 2 == 0 ? NextFrame(state, record) : PreviousFrame(state, record);
                Require(state.iCurrentFrame >= 0 && state.iCurrentFrame < record.iFrames);
                Require(state.iDirection == 1 || (state.iDirection == -1 && record.iRepeat == kPingPong));
            }
            Draw(context, record, state, memory);
        }
    }
    return 0;
}
