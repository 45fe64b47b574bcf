#include "animation/rules/stepping.h"

namespace lumrake {

namespace {

/// `iSense` is +1 with the direction, -1 against it.
bool Step(PlayState& state, const AnimationRecord& record, std::int32_t iSense) {
    const std::int32_t last = record.iFrames - 1;
    const auto outside = [last](std::int32_t frame) { return frame < 0 || frame > last; };
    std::int32_t frame = state.iCurrentFrame + iSense * state.iDirection;
    bool stop = false;
    if (record.iRepeat == kPingPong) {
        if (outside(frame)) {
            state.iDirection = static_cast<std::int16_t>(-state.iDirection);
            frame = state.iCurrentFrame + iSense * state.iDirection;
        }
        if (outside(frame)) { // a single frame has no neighbour on either side
            frame = 0;
        }
        if (frame == 0 || frame == last) {
            state.iDirection = static_cast<std::int16_t>(-state.iDirection);
        }
    } else if (outside(frame)) {
        frame = frame < 0 ? last : 0;
        stop = record.iRepeat == kOnceOnly;
    }
    state.iCurrentFrame = static_cast<std::int16_t>(frame);
    return stop;
}

} // namespace

bool NextFrame(PlayState& state, const AnimationRecord& record) {
    return Step(state, record, 1);
}

bool PreviousFrame(PlayState& state, const AnimationRecord& record) {
    return Step(state, record, -1);
}

} // namespace lumrake
