#include "art.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumrake::examples {

namespace {

// A moonraker with his rake on the shoulder. Lengths are in pixels; y runs down and the ground is the lowest
// line.
constexpr int kWidth = 24;
constexpr int kHeight = 32;
constexpr double kBodyX = 12.5;
constexpr double kAnkleY = 29.0; // of a foot that stands flat
constexpr double kHipY = 20.0;   // at its lowest
constexpr double kThigh = 5.4;
constexpr double kShin = 5.4;
constexpr double kReach =
    6.0; // of a foot before and behind the hip: a standing foot glides back 3 pixels a frame
constexpr double kLift = 3.6; // of a swinging foot

struct Point {
    double x;
    double y;
};

struct Foot {
    Point ankle;
    double toeDrop; // how far the toe lies under (positive) or over the flat foot
};

// Where a foot is at a time of its round: it stands from 0 to 0.5 and swings forward from 0.5 to 1.
Foot FootAt(double time) {
    if (time < 0.5) {
        const double heelOff = time > 0.3 ? 1.2 : 0.0;
        return {{kBodyX + kReach * (1 - 4 * time), kAnkleY - heelOff}, time < 0.1 ? -1.6 : heelOff};
    }
    const double swing = 2 * (time - 0.5);
    const double eased = 0.5 - 0.5 * std::cos(std::numbers::pi * swing);
    const double height = kLift * std::sin(std::numbers::pi * std::pow(swing, 0.7)) + 1.2 * (1 - swing);
    return {{kBodyX - kReach + 2 * kReach * eased, kAnkleY - height}, 2.2 * (1 - swing) - 1.6 * swing};
}

// The knee between hip and ankle, on the side to which the figure walks.
Point KneeBetween(Point hip, Point ankle) {
    const double dx = ankle.x - hip.x;
    const double dy = ankle.y - hip.y;
    const double distance = std::hypot(dx, dy);
    const double along = (kThigh * kThigh - kShin * kShin + distance * distance) / (2 * distance);
    const double aside = std::sqrt(std::max(0.0, kThigh * kThigh - along * along));
    return {hip.x + (dx * along + dy * aside) / distance, hip.y + (dy * along - dx * aside) / distance};
}

Bitmap Leg(double time, Point hip, double radius) {
    const Foot foot = FootAt(time);
    const Point knee = KneeBetween(hip, foot.ankle);
    Bitmap leg(kWidth, kHeight);
    leg.Stroke(hip.x, hip.y, knee.x, knee.y, radius + 0.3);
    leg.Stroke(knee.x, knee.y, foot.ankle.x, foot.ankle.y, radius);
    leg.Stroke(foot.ankle.x - 0.5, foot.ankle.y + 1.5, foot.ankle.x + 3.2, foot.ankle.y + 1.5 + foot.toeDrop,
               0.9);
    return leg;
}

Bitmap Rake(int sink) {
    // The pole runs from the hand up over the shoulder to the middle of the head, whose teeth point up.
    constexpr int kTop = 3;
    Bitmap rake(kWidth, kHeight);
    rake.Box(0, kTop + 3 + sink, 7, 1);
    for (int tooth = 0; tooth < 7; tooth += 2) {
        rake.Box(tooth, kTop + sink, 1, 3);
    }
    rake.Stroke(3, kTop + 4 + sink, 22, kTop + 17.5 + sink, 0.55);
    return rake;
}

Bitmap Coat(double sink, double sway) {
    Bitmap coat(kWidth, kHeight);
    coat.Stroke(kBodyX - 0.2, 14.5 + sink, kBodyX, 17 + sink, 3.5);
    coat.Stroke(kBodyX - 1.2, 18 + sink, kBodyX - 2.4 + sway, 21.5 + sink, 2.1);
    coat.Stroke(kBodyX + 1.2, 18 + sink, kBodyX + 1.6 + sway, 20.5 + sink, 2.1);
    return coat;
}

// An arm that hangs from the shoulder at an angle (in radians, positive to the front), bent a little at the
// elbow.
Bitmap Arm(double angle, double sink) {
    const Point shoulder{kBodyX, 14 + sink};
    const Point elbow{shoulder.x + 3.4 * std::sin(angle), shoulder.y + 3.4 * std::cos(angle)};
    const Point hand{elbow.x + 3.6 * std::sin(angle + 0.5), elbow.y + 3.6 * std::cos(angle + 0.5)};
    Bitmap arm(kWidth, kHeight);
    arm.Stroke(shoulder.x, shoulder.y, elbow.x, elbow.y, 0.9);
    arm.Stroke(elbow.x, elbow.y, hand.x, hand.y, 0.9);
    arm.Stroke(hand.x, hand.y, hand.x, hand.y, 1.1);
    return arm;
}

// clang-format off
constexpr std::array<std::string_view, 11> kHead{
    ".....####....",
    "....######...",
    "....######...",
    "....######...",
    ".............",
    ".###########.",
    "...####.##...",
    "...####.####.",
    "...########..",
    "....######...",
    ".....####....",
};
// clang-format on

Bitmap Head() {
    Bitmap head(13, static_cast<int>(kHead.size()));
    for (int y = 0; y < head.Height(); ++y) {
        for (int x = 0; x < head.Width(); ++x) {
            head.Put(x, y, kHead[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == '#');
        }
    }
    return head;
}

} // namespace

Bitmap WalkFrame(int frame) {
    const double time = frame / double{kWalkFrames};
    const double opposite = std::fmod(time + 0.5, 1.0);
    // The body rises over each standing leg: twice in a round, by one pixel.
    const int rise = frame % 4 == 2 || frame % 4 == 3 ? 1 : 0;
    const int sink = -rise;
    const Point hip{kBodyX, kHipY + sink};
    const double swing = std::cos(2 * std::numbers::pi * time); // 1 with the near foot in front

    Bitmap picture(kWidth, kHeight);
    Stamp(picture, Rake(sink), 0, 0);
    Stamp(picture, Leg(opposite, hip, 0.8), 0, 0);
    Stamp(picture, Leg(time, hip, 1.0), 0, 0);
    Stamp(picture, Coat(sink, -0.7 * std::abs(swing)), 0, 0);
    // The far arm grows out of the coat and its hand closes around the pole, so neither gets a dark edge.
    Bitmap farArm(kWidth, kHeight);
    farArm.Stroke(kBodyX, 16 + sink, 19, 17.5 + sink, 0.8);
    farArm.Stroke(19, 17.5 + sink, 19, 17.5 + sink, 1.2);
    Overlay(picture, farArm, 0, 0);
    Stamp(picture, Arm(-0.25 - 0.75 * swing, sink), 0, 0);
    Stamp(picture, Head(), 7, 1 + sink);
    return picture;
}

} // namespace lumrake::examples
