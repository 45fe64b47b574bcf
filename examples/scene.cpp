#include "art.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumrake::examples {

namespace {

// Moonlight over a harbour: castle to the left, lighthouse to the right, and a moonraker on the quay.
constexpr int kWidth = 256;
constexpr int kHeight = 192;
constexpr int kHorizon = 128;
constexpr int kSeaEnd = 182; // below it the bottom line of text
constexpr int kMoonX = 176;
constexpr int kMoonY = 84;
constexpr int kMoonRadius = 25;
constexpr int kQuayTop = 164;
constexpr int kQuayEnd = 92;

// Ordered dither: whether a pixel of this brightness (0 dark to 1 light) is lit.
bool Lit(int x, int y, double brightness) {
    static constexpr std::array<std::array<int, 4>, 4> kThresholds{{
        {0, 8, 2, 10},
        {12, 4, 14, 6},
        {3, 11, 1, 9},
        {15, 7, 13, 5},
    }};
    const int threshold = kThresholds[static_cast<std::size_t>(y % 4)][static_cast<std::size_t>(x % 4)];
    return brightness * 16 > threshold + 0.5;
}

// The same random numbers in every run.
class Chance {
  public:
    int Below(int limit) {
        state_ = state_ * 1664525U + 1013904223U;
        return static_cast<int>((state_ >> 16) % static_cast<unsigned>(limit));
    }

  private:
    std::uint32_t state_ = 0x4C554D52;
};

void DrawSky(Bitmap& picture, Chance& chance) {
    for (int y = 0; y < kHorizon; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double height = static_cast<double>(y) / kHorizon;
            const double distance = std::hypot(x - kMoonX, y - kMoonY) - kMoonRadius;
            const double halo = distance > 0 ? 0.55 * std::exp(-distance / 16) : 0;
            picture.Put(x, y, Lit(x, y, 0.34 * height * height * height + halo));
        }
    }
    for (int star = 0; star < 70; ++star) {
        const int x = 2 + chance.Below(kWidth - 4);
        const int y = 2 + chance.Below(84);
        picture.Box(x - 1, y - 1, 3, 3, false);
        picture.Put(x, y);
        if (star % 8 == 0) {
            picture.Stroke(x - 1, y, x + 1, y, 0.1);
            picture.Stroke(x, y - 1, x, y + 1, 0.1);
        }
    }
}

void DrawMoon(Bitmap& picture) {
    struct Sea {
        int x;
        int y;
        int radius;
    };
    static constexpr std::array<Sea, 6> kSeas{
        {{-9, -8, 7}, {3, -12, 5}, {-12, 5, 5}, {8, 2, 4}, {-1, 12, 6}, {13, 11, 3}}};
    for (int y = -kMoonRadius; y <= kMoonRadius; ++y) {
        for (int x = -kMoonRadius; x <= kMoonRadius; ++x) {
            const double distance = std::hypot(x, y);
            if (distance > kMoonRadius + 0.3) {
                continue;
            }
            double light = 1.05;
            for (const Sea& sea : kSeas) {
                const double depth = sea.radius - std::hypot(x - sea.x, y - sea.y);
                light -= std::clamp(depth, 0.0, 2.0) * 0.16;
            }
            // The lower left edge turns away from the light.
            light -= std::max(0.0, (y - x) / (1.6 * kMoonRadius) - 0.45);
            picture.Put(kMoonX + x, kMoonY + y,
                        distance > kMoonRadius - 1 || Lit(kMoonX + x, kMoonY + y, light));
        }
    }
}

// A wedge of light from the lamp over the town, between two dark edges.
void DrawBeam(Bitmap& picture, int lampX, int lampY) {
    for (int x = lampX; x > lampX - 150; --x) {
        const double length = lampX - x;
        const double middle = lampY - 0.30 * length;
        const double half = 1 + length * 0.075;
        for (int y = static_cast<int>(middle - half) - 1; y <= static_cast<int>(middle + half) + 1; ++y) {
            picture.Put(x, y, std::abs(y - middle) <= half && Lit(x, y, 0.95 - length / 110));
        }
    }
}

void DrawSea(Bitmap& picture, Chance& chance) {
    picture.Box(0, kHorizon, kWidth, kSeaEnd - kHorizon, false);
    picture.Box(0, kHorizon, kWidth, 1);
    for (int y = kHorizon + 2; y < kSeaEnd; y += 2) {
        const int depth = y - kHorizon;
        for (int wave = 0; wave < 11 - depth / 8; ++wave) {
            const int x = chance.Below(kWidth);
            picture.Box(x, y, 2 + chance.Below(3 + depth / 4), 1);
        }
        // The moon's road: strokes that widen and break up towards the shore.
        const int spread = 8 + depth * 2 / 5;
        for (int stroke = 0; stroke < 4; ++stroke) {
            const int length = 4 + chance.Below(6 + spread / 2);
            const int x = kMoonX - spread + chance.Below(2 * spread);
            picture.Box(x - length / 2, y, length, 1);
            if (stroke == 0 && depth > 10) {
                picture.Box(x - length / 3, y + 1, length * 2 / 3, 1);
            }
        }
    }
}

// A tower in the dark with a rim of moonlight on its right, and battlements or a pointed roof on top.
void DrawTower(Bitmap& picture, int left, int top, int width, int bottom, bool roof) {
    picture.Box(left - 1, top - 1, width + 2, bottom - top + 1, false);
    picture.Box(left + width - 1, top, 1, bottom - top);
    for (int y = top + 2; y < bottom; y += 3) { // the dark side is only hinted at
        picture.Put(left, y);
    }
    if (roof) {
        const int height = width * 4 / 3;
        for (int y = 0; y <= height; ++y) {
            const int half = (width / 2 + 2) * y / height;
            const int middle = left + width / 2;
            picture.Box(middle - half - 1, top - height + y, 2 * half + 3, 1, false);
            picture.Put(middle + half, top - height + y);
            picture.Put(middle - half, top - height + y, y % 2 == 0);
            picture.Box(middle + half / 3, top - height + y, 1 + half / 4, 1, y % 2 == 0);
        }
        picture.Box(left - 2, top, width + 4, 1);
        return;
    }
    for (int x = left - 2; x < left + width + 2; x += 5) {
        picture.Box(x - 1, top - 4, 5, 5, false);
        picture.Box(x, top - 3, 3, 1);
        picture.Box(x + 2, top - 3, 1, 3);
    }
    picture.Box(left - 2, top, width + 4, 1);
}

// Left top corners of the castle's windows, each within one character cell.
constexpr std::array<std::pair<int, int>, 8> kWindows{
    {{37, 74}, {49, 74}, {51, 83}, {12, 89}, {76, 82}, {26, 97}, {61, 97}, {76, 97}}};

void DrawWindow(Bitmap& picture, int x, int y) {
    picture.Box(x, y, 3, 5);
    picture.Put(x, y, false);
    picture.Put(x + 2, y, false);
}

void DrawCastle(Bitmap& picture, Chance& chance) {
    // The rock: a jagged slope down to the water.
    for (int x = 0; x < 122; ++x) {
        const int top = 106 + x * x / 640 + chance.Below(2) + (x % 13 == 0 ? -1 : 0);
        picture.Box(x, top - 2, 1, kHorizon - top + 2, false);
        picture.Put(x, top);
        for (int y = top + 1; y < kHorizon; ++y) {
            picture.Put(x, y, Lit(x, y, 0.22 - 0.012 * (y - top)) && chance.Below(3) > 0);
        }
    }
    DrawTower(picture, 12, 86, 66, 108, false); // curtain wall
    DrawTower(picture, 34, 68, 26, 104, false); // keep
    DrawTower(picture, 8, 78, 12, 110, true);
    DrawTower(picture, 70, 74, 14, 112, true);
    DrawTower(picture, 42, 62, 9, 66, true);
    for (const auto& [x, y] : kWindows) {
        DrawWindow(picture, x, y);
    }
    picture.Stroke(46, 44, 46, 50, 0.1); // flag on the highest roof
    picture.Box(47, 44, 6, 1);
    picture.Box(47, 45, 5, 1);
    picture.Box(47, 46, 3, 1);
}

void DrawLighthouse(Bitmap& picture) {
    constexpr int kX = 230;
    for (int x = 205; x < kWidth; ++x) {
        const int top = kHorizon - 1 - std::min((x - 205) / 3, 7) - (x % 7 == 0 ? 1 : 0);
        picture.Box(x, top - 1, 1, kHorizon - top + 5, false);
        picture.Put(x, top);
    }
    for (int y = 78; y < 121; ++y) {
        const int half = 4 + (y - 78) / 12;
        const bool light = (y - 78) / 7 % 2 == 0;
        picture.Box(kX - half - 1, y, 2 * half + 3, 1, false);
        picture.Box(kX - half, y, 2 * half + 1, 1, light);
        if (light) { // the shaded side away from the moon
            for (int x = kX + 1; x <= kX + half; ++x) {
                picture.Put(x, y, Lit(x, y, 0.9 - 0.14 * (x - kX)));
            }
        } else {
            picture.Put(kX - half, y);
        }
    }
    picture.Box(kX - 7, 75, 15, 3, false);
    picture.Box(kX - 6, 76, 13, 1);
    picture.Box(kX - 4, 67, 9, 9, false);
    picture.Box(kX - 2, 69, 5, 6);
    picture.Box(kX - 4, 67, 9, 1);
    picture.Stroke(kX - 2, 65, kX + 2, 65, 1.1);
    picture.Stroke(kX, 62, kX, 64, 0.5);
}

void DrawQuay(Bitmap& picture) {
    picture.Box(0, kQuayTop - 1, kQuayEnd + 2, kSeaEnd - kQuayTop + 1, false);
    picture.Box(0, kQuayTop, kQuayEnd, 2);
    for (int y = kQuayTop + 3; y < kSeaEnd; ++y) {
        const int course = (y - kQuayTop - 3) / 5;
        for (int x = 0; x < kQuayEnd - 1; ++x) {
            const bool joint = (y - kQuayTop - 3) % 5 == 4 || (x + course % 2 * 6) % 12 == 0;
            picture.Put(x, y, !joint && Lit(x, y, 0.25 + 0.45 * x / kQuayEnd));
        }
    }
    Stamp(picture, Item(3), 6, kQuayTop - 16);
    Stamp(picture, Item(3), 20, kQuayTop - 16);
    Stamp(picture, Item(3), 13, kQuayTop - 31);
    Stamp(picture, WalkFrame(0), 50, kQuayTop - 32);
}

// The name in letters of four times the size: solid above, striped below, with a dark edge and a drop shadow.
void DrawName(Bitmap& picture) {
    constexpr std::string_view kName = "LUMRAKE";
    Bitmap small(static_cast<int>(kName.size()) * 8, 8);
    for (std::size_t place = 0; place < kName.size(); ++place) {
        Overlay(small, Glyph(kName[place] - 32), static_cast<int>(place) * 8, 0);
    }
    const Bitmap letters = Doubled(Doubled(small));
    constexpr int kLeft = 18;
    constexpr int kTop = 10;
    for (int y = 0; y < letters.Height(); ++y) {
        for (int x = 0; x < letters.Width(); ++x) {
            if (letters.At(x, y)) {
                picture.Box(kLeft + x - 2, kTop + y - 2, 8, 8, false);
            }
        }
    }
    for (int y = 0; y < letters.Height(); ++y) {
        for (int x = 0; x < letters.Width(); ++x) {
            if (letters.At(x, y)) {
                picture.Put(kLeft + x + 4, kTop + y + 4, (x + y) % 2 == 0);
            }
        }
    }
    // A dark line between the letters and their shadow.
    for (int y = 0; y < letters.Height(); ++y) {
        for (int x = 0; x < letters.Width(); ++x) {
            if (letters.At(x, y)) {
                picture.Box(kLeft + x - 1, kTop + y - 1, 3, 3, false);
            }
        }
    }
    for (int y = 0; y < letters.Height(); ++y) {
        for (int x = 0; x < letters.Width(); ++x) {
            if (!letters.At(x, y)) {
                continue;
            }
            const bool edge = !letters.At(x - 1, y) || !letters.At(x + 1, y) || !letters.At(x, y - 1) ||
                              !letters.At(x, y + 1);
            const bool stripe = (y > 10 && y % 4 == 2) || (y > 18 && y % 2 == 0);
            picture.Put(kLeft + x, kTop + y, edge || !stripe);
        }
    }
}

constexpr int kBlue = 1;
constexpr int kRed = 2;
constexpr int kMagenta = 3;
constexpr int kCyan = 5;
constexpr int kYellow = 6;
constexpr int kWhite = 7;
constexpr int kBright = 64;

// A block of character cells, painted over those before it. The paper is black everywhere.
struct Patch {
    int row;
    int column;
    int rows;
    int columns;
    int value;
};

// clang-format off
constexpr std::array kSkyPatches{
    Patch{ 0,  0, 10, 32, kBright + kBlue},
    Patch{10,  0,  4, 32, kMagenta},
    Patch{14,  0,  2, 32, kBright + kMagenta},
};
constexpr std::array kPatches{
    Patch{ 1,  0,  3, 32, kBright + kWhite},   // the name
    Patch{ 3,  0,  2, 32, kBright + kYellow},
    Patch{ 5,  5,  1,  2, kBright + kRed},     // flag
    Patch{ 8,  0,  5, 11, kBright + kMagenta}, // castle
    Patch{13,  0,  3, 14, kCyan},              // rock
    Patch{12, 14,  4,  5, kBright + kWhite},   // galleon
    Patch{ 8, 27,  2,  4, kBright + kYellow},  // lamp
    Patch{10, 27,  5,  4, kBright + kWhite},   // lighthouse
    Patch{16,  0,  3, 32, kBright + kBlue},    // sea
    Patch{19,  0,  4, 32, kCyan},
    Patch{16, 20,  2,  5, kBright + kYellow},  // the moon's road
    Patch{18, 19,  3,  7, kBright + kYellow},
    Patch{21, 18,  2,  9, kBright + kYellow},
    Patch{16,  1,  2,  3, kYellow},            // barrels
    Patch{18,  0,  2,  5, kYellow},
    Patch{16,  6,  5,  4, kBright + kWhite},   // the moonraker
    Patch{20,  0,  3, 12, kYellow},            // quay
    Patch{23,  0,  1, 32, kBright + kCyan},
};
// clang-format on

Bytes Attributes() {
    Bytes attributes(32 * 24);
    const auto set = [&attributes](int row, int column, int value) {
        attributes[static_cast<std::size_t>(row * 32 + column)] = static_cast<std::uint8_t>(value);
    };
    const auto paint = [&set](const Patch& patch) {
        for (int row = patch.row; row < patch.row + patch.rows; ++row) {
            for (int column = patch.column; column < patch.column + patch.columns; ++column) {
                set(row, column, patch.value);
            }
        }
    };
    std::ranges::for_each(kSkyPatches, paint);
    for (int row = 0; row < 16; ++row) {
        for (int column = 0; column < 32; ++column) {
            const double distance = std::hypot(column * 8 + 4 - kMoonX, row * 8 + 4 - kMoonY);
            if (distance < kMoonRadius + 20) {
                set(row, column, distance < kMoonRadius + 4 ? kBright + kYellow : kYellow);
            }
        }
    }
    std::ranges::for_each(kPatches, paint);
    for (const auto& [x, y] : kWindows) {
        set(y / 8, x / 8, kBright + kYellow);
    }
    return attributes;
}

} // namespace

TitleScreen DrawTitleScreen() {
    Bitmap picture(kWidth, kHeight);
    Chance chance;
    DrawSky(picture, chance);
    DrawBeam(picture, 227, 71);
    DrawMoon(picture);
    DrawCastle(picture, chance);
    DrawLighthouse(picture);
    DrawSea(picture, chance);
    DrawQuay(picture);
    Stamp(picture, Galleon(), 112, kHorizon - 25);
    DrawName(picture);
    DrawText(picture, "PRESS FIRE TO RAKE THE MOON", 20, 184);
    return {picture, Attributes()};
}

} // namespace lumrake::examples
