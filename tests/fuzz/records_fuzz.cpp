/// A file of any bytes as an animation and as the settings: each record is written back as it was read, and what uses
/// its fields keeps its limits whatever they hold. A short input is filled up with 0. What lies behind an animation is
/// its snapshot, through which it is stepped in all ways and drawn; what lies behind the settings is a file's length.
#include "animation/rules/animation_record.h"
#include "animation/rules/stepping.h"
#include "display/lmk.h"
#include "fuzz/require.h"
#include "preferences/rules/prefs_rules.h"
#include "snapshot/rules/view_limits.h"

#include <algorithm>
#include <cstring>
#include <vector>

using namespace lumrake;

namespace {

using Bytes = std::span<const std::uint8_t>;

/// Takes a record from the front of the bytes.
template <std::size_t kBytes> std::array<std::uint8_t, kBytes> Head(Bytes& bytes) {
    std::array<std::uint8_t, kBytes> head{};
    const std::size_t size = std::min(bytes.size(), kBytes);
    std::ranges::copy(bytes.first(size), head.begin());
    bytes = bytes.subspan(size);
    return head;
}

void Draw(lmk::DeviceContext& context, const AnimationRecord& record, const PlayState& state,
          const std::vector<std::uint8_t>& memory) {
    static constexpr std::int32_t kPalette[16] = {};
    lmk::zxShowMem(&context, memory.data(), FrameOffset(record, state.iCurrentFrame),
                   static_cast<std::int32_t>(memory.size()), record.iWidth, record.iLines, 1,
                   record.iUpsideDown * 128 | record.iZoom * 16 | record.iMode, record.byAttribute, kPalette);
    Require(context.Picture().Width() == record.iWidth && context.Picture().Height() == record.iLines);
    Require(context.Factor() == lmk::ZoomIndexToFactor(record.iZoom));
}

void UseAnimation(Bytes bytes) {
    const auto head = Head<kAnimationBytes>(bytes);
    const AnimationRecord read = DecodeAnimation(head);
    Require(EncodeAnimation(read) == head);
    const auto snapLength = static_cast<std::int32_t>(bytes.size());
    const AnimationRecord record = HeldForUse(read, snapLength);
    Require(HeldForUse(record, snapLength) == record);
    // Memory of its exact size, so that a read past its end is seen.
    const std::vector<std::uint8_t> memory(bytes.begin(),
                                           bytes.begin() + std::min(snapLength, record.lFileLength));
    lmk::DeviceContext context;
    PlayState states[] = {{0, 1}, {static_cast<std::int16_t>(record.iFrames - 1), 1}};
    for (PlayState& state : states) {
        // Runs forward and back of growing length, so that ends are met from both sides.
        for (int run = 1; run <= 8; ++run) {
            Draw(context, record, state, memory);
            for (int step = 0; step < run; ++step) {
                run % 2 == 0 ? NextFrame(state, record) : PreviousFrame(state, record);
                Require(state.iCurrentFrame >= 0 && state.iCurrentFrame < record.iFrames);
                Require(state.iDirection == 1 || (state.iDirection == -1 && record.iRepeat == kPingPong));
            }
        }
    }
}

void UseSettings(Bytes bytes) {
    const auto head = Head<kSettingsBytes>(bytes);
    const SettingsRecord settings = DecodeSettings(head);
    Require(EncodeSettings(settings) == head);
    IsSameVersion(settings, "2.00");
    std::int32_t length = 0;
    std::memcpy(&length, bytes.data(), std::min(bytes.size(), sizeof length));
    length = std::max(length & 0x7fffffff, 1);
    ViewNumbers view = DefaultView(settings, length);
    FitToMode(view, view.iMode);
    Require(view.lOffset >= 0 && view.lOffset < length && view.lFileLength == length);
    Require(view.iWidth % 8 == 0 && view.iWidth >= 8 && view.iWidth <= 256);
    Require(view.iLines >= 1 && view.iLines <= 512 && view.iColumns >= 1 && view.iColumns <= 16);
    Require(view.iMode >= kGraphics && view.iMode <= kByteMasks && view.iZoomFactor == 1);
    Require(view.iMode != kText || view.iLines % 8 == 0);
    for (const char* which : {"FORE", "BACK"}) {
        const Colour colour = AttributeColour(settings, settings.iDefaultAttribute, which);
        Require(std::ranges::count(settings.lPalette, colour) > 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    UseAnimation({data, size});
    UseSettings({data, size});
    return 0;
}
