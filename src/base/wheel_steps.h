#pragma once

namespace lumrake {

/// Adds up the turns of a mouse wheel to whole steps: a smooth wheel or a touchpad sends parts of them.
class WheelSteps {
  public:
    static constexpr int kNotch = 120; ///< eighths of a degree

    /// The whole steps, of `step` eighths of a degree, that a turn by `angle` completes, with its sign. What is left
    /// counts for the next turn, unless that goes back or is meant for something else, told by another `what`.
    int Add(int angle, int what, int step = kNotch) {
        const bool goesOn = what == what_ && (angle < 0) == (left_ < 0);
        const int turned = goesOn ? left_ + angle : angle;
        what_ = what;
        left_ = turned % step;
        return turned / step;
    }

  private:
    int left_ = 0;
    int what_ = 0;
};

} // namespace lumrake
