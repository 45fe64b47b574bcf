#include "art.h"

namespace lumrake::examples {

namespace {

// Sixteen tiles: nothing, brick, stone, planks, ladder, water, deep water, ground, lamp, chain, arch, door,
// reeds, anchor, skull, barrel.
// clang-format off
constexpr std::array<std::string_view, 16> kTileArt{
    "........ ###.#### .######. ######## .#....#. ........ .#.#.#.# #.#..#.#",
    "........ ###.#### ######## .#...... .######. ..##.... #.#.#.#. ########",
    "........ ###.#### ####.### ######## .#....#. .####..# .#.#.#.# ########",
    "........ ........ ######## ........ .#....#. ######## ..#.#.#. .###.##.",
    "........ #######. ##.##### ######## .#....#. ##.##### .#.#.#.# #.#.###.",
    "........ #######. #######. .....#.. .######. ####.### #.#.#.#. .#.#.#..",
    "........ #######. ######## ######## .#....#. #.###### .#.#...# ..#...#.",
    "........ ........ .######. ........ .#....#. ###.##.# #.#.#.#. ........",

    "...##... ...#.... ..####.. .######. ...#.... ..#..... .######. ..####..",
    "..#..#.. ..#.#... .##.###. ##.##.## ...#.... .###..#. ######## .#.##.#.",
    ".######. ..#.#... ###.#### ##.##.## ..##...# ..#..### #..##..# ########",
    ".#....#. ...#.... ###.#### ##.##.## ..###..# ..#...#. #..##..# #.####.#",
    ".#.##.#. ...#.... ........ ##.##.## ..###.## #.#.#.#. ###..### #.####.#",
    ".#.##.#. ..#.#... ###.#### ##.##..# .####.## .####.#. .######. ########",
    ".######. ..#.#... ###.#### ##.##.## .####### ..##.##. .#.##.#. .#.##.#.",
    "..####.. ...#.... ######## ##.##.## ######## ...##... .######. ..####..",
};

// The quay by night. The place of a sign in kTileSigns is the number of its tile.
constexpr std::string_view kTileSigns = " BS=H~w^*cADra@o";

constexpr std::array<std::string_view, 20> kRoom{
    "BBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBB",
    "B  c        c      c           B",
    "B  *        c      *           B",
    "B           *                  B",
    "B                              B",
    "B  AAA                    @    B",
    "B==BBB=====H===        ===S=== B",
    "B  BBB     H              S    B",
    "B          H         @    S    B",
    "B          H       =======S    B",
    "B   o o    H              S    B",
    "B =========S====          S   =B",
    "B          S    H         S    B",
    "B          S    H  oo     S  a B",
    "B^^^       S  ==H=====    S====B",
    "BSSS^^     S    H         S    B",
    "BSSSSS^^   S    H  rr     S    B",
    "BSSSSSSS^^^^^^^^^^^^^~~~~~~~~~~B",
    "BSSSSSSSSSSSSSSSSSSSSwwwwwwwwwwB",
    "BBBBBBBBBBBBBBBBBBBBBBBBBBBBBBBB",
};
// clang-format on

} // namespace

Bitmap Tile(int index) {
    return FromStrips(kTileArt, 8, index);
}

Bytes RoomMap() {
    Bytes map;
    for (const std::string_view row : kRoom) {
        for (const char sign : row) {
            map.push_back(static_cast<std::uint8_t>(kTileSigns.find(sign)));
        }
    }
    return map;
}

} // namespace lumrake::examples
