#include "snapshot.h"

#include "art.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string>
#include <string_view>

namespace lumrake::examples {

namespace {

// Where things lie in the Spectrum's memory. The place in the file is the address less 16384 plus 27.
constexpr int kRamStart = 16384;
constexpr int kHeaderSize = 27;
constexpr int kScreen = 16384;
constexpr int kBasic = 23755;
constexpr int kProgram = 24576;
constexpr int kFont = 32768;
constexpr int kTileSet = 33536;
constexpr int kRoom = 33664;
constexpr int kItemSprites = 34816;
constexpr int kPictureSprites = 35072;
constexpr int kGalleon = 35584;
constexpr int kCreatureSprites = 35840;
constexpr int kFlyerSprites = 36864;
constexpr int kWalker = 37888;
constexpr int kMessages = 38912;
constexpr int kTables = 40960;
constexpr int kMoreProgram = 41984;
constexpr int kLevels = 49152;
constexpr int kStack = 65348; // holds the address at which the program goes on

constexpr int FileOffset(int address) {
    return address - kRamStart + kHeaderSize;
}

std::uint8_t Low(int value) {
    return static_cast<std::uint8_t>(value & 255);
}

std::uint8_t High(int value) {
    return static_cast<std::uint8_t>(value >> 8 & 255);
}

void AppendWord(Bytes& bytes, int value) {
    bytes.push_back(Low(value));
    bytes.push_back(High(value));
}

void AppendText(Bytes& bytes, std::string_view text) {
    for (const char character : text) {
        bytes.push_back(static_cast<std::uint8_t>(character));
    }
}

// The same numbers in every run, so that the file never changes.
class Chance {
  public:
    explicit Chance(std::uint32_t seed) : state_(seed) {}

    int Below(int limit) {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<int>(state_ % static_cast<unsigned>(limit));
    }

  private:
    std::uint32_t state_;
};

// Bytes that look like the code of a game when paged through: common instructions with likely operands, in
// short subroutines. Nothing ever runs them.
Bytes CodeLike(int length, std::uint32_t seed) {
    // "w" stands for a word, an address in the game; "b" for a small byte; "d" for a short jump back.
    struct Instruction {
        std::array<int, 2> opcode; // the second is -1 where there is none
        char operand;
    };
    // clang-format off
    static constexpr std::array<Instruction, 24> kInstructions{{
        {{0x21, -1}, 'w'}, {{0x11, -1}, 'w'}, {{0x3A, -1}, 'w'}, {{0x32, -1}, 'w'},
        {{0xCD, -1}, 'w'}, {{0xC3, -1}, 'w'}, {{0x3E, -1}, 'b'}, {{0x06, -1}, 'b'},
        {{0xFE, -1}, 'b'}, {{0xE6, -1}, 'b'}, {{0x10, -1}, 'd'}, {{0x20, -1}, 'd'},
        {{0x28, -1}, 'd'}, {{0x7E, -1}, ' '}, {{0x77, -1}, ' '}, {{0x23, -1}, ' '},
        {{0x13, -1}, ' '}, {{0xC5, -1}, ' '}, {{0xC1, -1}, ' '}, {{0xAF, -1}, ' '},
        {{0x1A, -1}, ' '}, {{0x24, -1}, ' '}, {{0xED, 0xB0}, ' '}, {{0xCB, 0x3F}, ' '},
    }};
    // clang-format on
    Chance chance(seed);
    Bytes bytes;
    while (static_cast<int>(bytes.size()) < length) {
        for (int count = 4 + chance.Below(14); count > 0; --count) {
            const auto& [opcode, operand] =
                kInstructions[static_cast<std::size_t>(chance.Below(kInstructions.size()))];
            bytes.push_back(Low(opcode[0]));
            if (opcode[1] >= 0) {
                bytes.push_back(Low(opcode[1]));
            }
            switch (operand) {
            case 'w': AppendWord(bytes, kProgram + chance.Below(kTables - kProgram)); break;
            case 'b': bytes.push_back(Low(1 << chance.Below(8))); break;
            case 'd': bytes.push_back(Low(-3 - chance.Below(24))); break;
            default: break;
            }
        }
        bytes.push_back(0xC9);
    }
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

// 10 CLEAR 24575: LOAD ""CODE : RANDOMIZE USR 24576. A number is its digits, then 14 and five bytes of its
// value.
Bytes BasicLoader() {
    Bytes line{0xFD};
    AppendText(line, "24575");
    line.insert(line.end(), {14, 0, 0, Low(24575), High(24575), 0});
    line.insert(line.end(), {':', 0xEF, '"', '"', 0xAF, ':', 0xF9, 0xC0});
    AppendText(line, "24576");
    line.insert(line.end(), {14, 0, 0, Low(24576), High(24576), 0, 13});
    Bytes program{0, 10};
    AppendWord(program, static_cast<int>(line.size()));
    Append(program, line);
    program.push_back(0x80); // no variables
    return program;
}

// The few instructions that do run when an emulator loads the snapshot: DI; XOR A; OUT (254),A; JR to itself.
// The title screen stays up under a black border.
Bytes Program() {
    Bytes bytes{0xF3, 0xAF, 0xD3, 0xFE, 0x18, 0xFE};
    Append(bytes, CodeLike(kFont - kProgram - static_cast<int>(bytes.size()), 0x52414B45));
    return bytes;
}

Bytes Messages() {
    static constexpr std::array<std::string_view, 12> kTexts{"YOU HAVE RAKED THE MOON OUT OF THE HARBOUR",
                                                             "THE TIDE IS OUT",
                                                             "A LANTERN WOULD HELP HERE",
                                                             "THE OWL KNOWS WHERE THE KEY IS",
                                                             "THE OCTOPUS WANTS THE BELL",
                                                             "MIND THE CRAB",
                                                             "THE BARREL IS EMPTY",
                                                             "THE CHEST IS LOCKED",
                                                             "A NOTE IN THE BOTTLE: RAKE AT MIDNIGHT",
                                                             "HIGH SCORES",
                                                             "PRESS ANY KEY",
                                                             "GAME OVER"};
    Bytes bytes;
    for (const std::string_view text : kTexts) {
        AppendText(bytes, text);
        bytes.back() |= 0x80; // the last character of a text carries bit 7
    }
    return bytes;
}

// A sine of 256 entries, then the address of each of the screen's 192 lines.
Bytes Tables() {
    Bytes bytes;
    for (int step = 0; step < 256; ++step) {
        bytes.push_back(
            Low(static_cast<int>(std::lround(64 + 63 * std::sin(step * std::numbers::pi / 128)))));
    }
    for (int y = 0; y < 192; ++y) {
        AppendWord(bytes, kScreen + 2048 * (y / 64) + 256 * (y % 8) + 32 * (y / 8 % 8));
    }
    return bytes;
}

// Further rooms in runs of a count and a tile number, as games pack them; each ends with 0.
Bytes Levels() {
    Chance chance(0x4D4F4F4E);
    Bytes bytes;
    for (int room = 0; room < 40; ++room) {
        for (int left = kRoomColumns * kRoomRows; left > 0;) {
            const int run = std::min(left, 1 + chance.Below(12));
            bytes.push_back(Low(run));
            bytes.push_back(Low(chance.Below(3) == 0 ? 0 : chance.Below(kTiles)));
            left -= run;
        }
        bytes.push_back(0);
    }
    return bytes;
}

template <class Draw, class Layout> Bytes Sequence(int count, Draw draw, Layout layout) {
    Bytes bytes;
    for (int index = 0; index < count; ++index) {
        Append(bytes, layout(draw(index)));
    }
    return bytes;
}

Bitmap TurnedOver(const Bitmap& picture) {
    Bitmap result(picture.Width(), picture.Height());
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            result.Put(x, picture.Height() - 1 - y, picture.At(x, y));
        }
    }
    return result;
}

// The registers as an emulator saves them; the program goes on at the address on top of the stack.
Bytes Registers() {
    constexpr std::array<int, 4> kAlternate{0x2758, 0x369B, 0x5CB9, 0x0044};      // HL', DE', BC', AF'
    constexpr std::array<int, 5> kMain{kWalker, kScreen, 0x0300, 0x5C3A, 0x03D4}; // HL, DE, BC, IY, IX
    Bytes bytes{0x3F};                                                            // I
    for (const int pair : kAlternate) {
        AppendWord(bytes, pair);
    }
    for (const int pair : kMain) {
        AppendWord(bytes, pair);
    }
    bytes.insert(bytes.end(), {0, 0x4C}); // interrupts off, R
    AppendWord(bytes, 0x0044);            // AF
    AppendWord(bytes, kStack);            // SP
    bytes.insert(bytes.end(), {1, 0});    // interrupt mode 1, black border
    return bytes;
}

// A text field of a record: one byte a character, blanks up to its width.
void AppendField(Bytes& record, std::string_view text, std::size_t width) {
    std::string field(text.substr(0, width));
    field.resize(width, ' ');
    AppendText(record, field);
}

void AppendLong(Bytes& record, int value) {
    AppendWord(record, value & 0xFFFF);
    AppendWord(record, value >> 16);
}

} // namespace

Bytes MakeSnapshot() {
    const TitleScreen title = DrawTitleScreen();
    Bytes screen = DisplayFile(title.picture);
    Append(screen, title.attributes);

    struct Part {
        int address;
        Bytes bytes;
    };
    // In the order of their addresses.
    const std::array<Part, 17> parts{{
        {kScreen, screen},
        {kBasic, BasicLoader()},
        {kProgram, Program()},
        {kFont, Sequence(kGlyphs, Glyph, PlainRows)},
        {kTileSet, Sequence(kTiles, Tile, PlainRows)},
        {kRoom, RoomMap()},
        {kItemSprites, Sequence(kItems, Item, PlainRows)},
        {kPictureSprites, Sequence(kPictures, Picture, PlainRows)},
        {kGalleon, PlainRows(TurnedOver(Galleon()))},
        {kCreatureSprites, Sequence(kCreatures, Creature, MaskedLines)},
        {kFlyerSprites, Sequence(kFlyers, Flyer, MaskedBytes)},
        {kWalker, Sequence(kWalkFrames, WalkFrame, PlainRows)},
        {kMessages, Messages()},
        {kTables, Tables()},
        {kMoreProgram, CodeLike(6144, 0x48415242)},
        {kLevels, Levels()},
        {kStack, {Low(kProgram), High(kProgram)}},
    }};
    Bytes file = Registers();
    for (const Part& part : parts) {
        const auto start = static_cast<std::size_t>(FileOffset(part.address));
        if (start < file.size()) {
            throw std::logic_error("the part at address " + std::to_string(part.address) +
                                   " overlaps the one before");
        }
        file.resize(start); // unused memory is 0
        Append(file, part.bytes);
    }
    if (file.size() > kSnapshotSize) {
        throw std::logic_error("the memory is full");
    }
    file.resize(kSnapshotSize);
    return file;
}

Bytes MakeAnimation() {
    const Bitmap frame = WalkFrame(0);
    Bytes record;
    AppendField(record, "", 100);           // own path: never saved yet
    AppendField(record, "sample.sna", 100); // beside the record, so that the folder may move
    AppendField(record, "Walking figure", 30);
    AppendWord(record, frame.Width());
    AppendWord(record, frame.Height());
    AppendWord(record, 3); // zoom index: four times
    AppendLong(record, FileOffset(kWalker));
    AppendWord(record, kWalkFrames);
    AppendLong(record, frame.Width() / 8 * frame.Height());
    AppendWord(record, 90); // milliseconds a frame
    AppendWord(record, 1);  // round and round
    AppendLong(record, static_cast<int>(kSnapshotSize));
    record.push_back(71); // bright white on black
    AppendField(record,
                "A moonraker on his way to the harbour, his rake on the shoulder.\r\n"
                "Eight frames of 24 x 32 pixels make one round of two steps;\r\n"
                "a standing foot glides back three pixels a frame.",
                500);
    AppendWord(record, 0); // Graphics
    AppendWord(record, 0); // not upside down
    if (record.size() != kAnimationSize) {
        throw std::logic_error("the animation record has a wrong length");
    }
    return record;
}

} // namespace lumrake::examples
