#pragma once

#include "animation/rules/animation_record.h"

#include <cstdint>

namespace lumrake {

/// Where a playing animation stands.
struct PlayState {
    std::int16_t iCurrentFrame = 0; ///< 0 to iFrames - 1, always
    std::int16_t iDirection = 1;    ///< +1 or -1; other than +1 in Ping-Pong only
};

/// The frame after this one, as a tick of the timer and the button Forward go. True when the animation has to
/// stop there.
///
///   Once only   on from the last frame comes frame 0, and the animation stops
///   Continuous  on from the last frame comes frame 0
///   Ping-Pong   the direction turns on reaching an end, so that an end is shown once: 1 2 3 2 1 0 1 ...
///
/// `record` is held for use (iFrames 1 and more).
bool NextFrame(PlayState& state, const AnimationRecord& record);

/// The frame before this one, as the button Back goes: the same rules against the direction. In Ping-Pong an
/// end frame's direction points inward, so going against it would leave the animation: the step is then
/// reflected there, and the same button, pressed again, goes on inward.
bool PreviousFrame(PlayState& state, const AnimationRecord& record);

} // namespace lumrake
