#pragma once

#include "bitmap.h"

#include <array>
#include <string_view>

namespace lumrake::examples {

constexpr int kGlyphs = 96;   // the characters 32 to 127, 8 x 8 pixels
constexpr int kTiles = 16;    // 8 x 8 pixels
constexpr int kItems = 8;     // 16 x 16: key, lantern, anchor, barrel, crab, fish, bell, bottle
constexpr int kPictures = 4;  // 24 x 24: lighthouse, boat, moon, chest
constexpr int kCreatures = 4; // 24 x 24: two frames of an owl, two of an octopus
constexpr int kFlyers = 6;    // 16 x 16: two frames of a bat, four of a spinning coin
constexpr int kWalkFrames = 8;

constexpr int kRoomColumns = 32;
constexpr int kRoomRows = 20;

// Pictures by their number from 0 on, in the order of the comments above.
Bitmap Glyph(int index);
Bitmap Tile(int index);
Bitmap Item(int index);
Bitmap Picture(int index);
Bitmap Creature(int index);
Bitmap Flyer(int index);
Bitmap Galleon(); // 48 x 32

// Frame 0 to 7 of the walk, 24 x 32 pixels, walking to the right on the spot. One round is two steps.
Bitmap WalkFrame(int frame);

// Tile numbers of the first room, row after row.
Bytes RoomMap();

// Writes text in the characters of Glyph, 8 pixels a character. Stands on whatever is there, with a dark
// edge.
void DrawText(Bitmap& picture, std::string_view text, int x, int y);

// The title screen: 256 x 192 pixels and 32 x 24 attribute bytes (ink in bits 0 to 2, paper in bits 3 to 5,
// bright in bit 6).
struct TitleScreen {
    Bitmap picture;
    Bytes attributes;
};
TitleScreen DrawTitleScreen();

} // namespace lumrake::examples
