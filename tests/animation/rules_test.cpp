#include "animation/rules/animation_record.h"
#include "animation/rules/layout.h"
#include "animation/rules/setup_rules.h"
#include "animation/rules/stepping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace lumrake {
namespace {

TEST(AnimationRecord, LiesInTheFileByteByByte) {
    const auto text = [](char first, std::size_t width, char last) {
        return first + std::string(width - 2, ' ') + last;
    };
    // clang-format off
    const std::string file = text('A', 100, 'B') + text('C', 100, 'D') + text('E', 30, 'F') +
        "\2\1" "\4\3" "\6\x85" "\12\11\10\7" "\14\13" "\20\17\16\x8D" "\22\21" "\24\23" "\30\27\26\25" "\x99" +
        text('G', 500, 'H') + "\34\33" "\xFE\xFF";
    const AnimationRecord record{
        .sAnimFile = {text('A', 100, 'B')}, .sSnapFile = {text('C', 100, 'D')}, .sTitle = {text('E', 30, 'F')},
        .iWidth = 0x0102, .iLines = 0x0304, .iZoom = -0x7AFA, .lOffset = 0x0708090A, .iFrames = 0x0B0C,
        .lStep = -0x72F1F0F0, .iPause = 0x1112, .iRepeat = 0x1314, .lFileLength = 0x15161718, .byAttribute = 0x99,
        .sNotes = {text('G', 500, 'H')}, .iMode = 0x1B1C, .iUpsideDown = -2};
    // clang-format on
    std::array<std::uint8_t, 759> bytes{};
    std::ranges::copy(file, bytes.begin());
    EXPECT_EQ(EncodeAnimation(record), bytes);
    EXPECT_EQ(DecodeAnimation(bytes), record);
}

TEST(AnimationRecord, NumbersOutsideTheirRangesAreHeld) {
    using R = AnimationRecord;
    const R kSound = HeldForUse({}, 1);
    const struct {
        std::int16_t R::*field;
        std::vector<std::pair<int, int>> cases; // read, held
    } fields[] = {
        {&R::iWidth, {{-8, 8}, {0, 8}, {12, 8}, {13, 16}, {248, 248}, {255, 256}, {32767, 256}}},
        {&R::iLines, {{-1, 1}, {0, 1}, {192, 192}, {193, 192}}},
        {&R::iZoom, {{0, 1}, {5, 5}, {6, 5}, {-32768, 1}}},
        {&R::iFrames, {{-5, 1}, {0, 1}, {1, 1}, {32767, 32767}}},
        {&R::iPause, {{0, 1}, {-1, 1}, {1, 1}}},
        {&R::iRepeat, {{-1, 1}, {0, 0}, {2, 2}, {3, 1}}},
        {&R::iMode, {{1, 0}, {2, 0}, {3, 3}, {4, 4}, {5, 0}, {-3, 0}}},
        {&R::iUpsideDown, {{0, 0}, {1, 1}, {-1, 1}, {256, 1}}},
    };
    for (const auto& [field, cases] : fields) {
        for (const auto& [read, held] : cases) {
            R record = kSound;
            record.*field = static_cast<std::int16_t>(read);
            R expected = kSound; // no other field changes
            expected.*field = static_cast<std::int16_t>(held);
            EXPECT_EQ(HeldForUse(record, 10), expected) << read;
        }
    }
    R record = kSound, held = kSound;
    record.lOffset = record.lStep = record.lFileLength = -7;
    held.lOffset = 0;
    held.lStep = 1;
    held.lFileLength = 6912;
    EXPECT_EQ(HeldForUse(record, 6912), held);
    record.lStep = 2147483647;
    EXPECT_EQ(FrameOffset(record, 1), 2147483640);
    EXPECT_EQ(FrameOffset(record, 32767), 2147483647) << "held in 32 bits";
}

TEST(Stepping, ShowsTheFrames) {
    // F and B are the buttons Forward and Back (a tick of the timer is F), "!" follows a frame at which the
    // animation stops.
    const std::tuple<std::int16_t, std::int16_t, std::string, const char*> walks[] = {
        // clang-format off
        {kOnceOnly,   4, "FFFFF",   "1230!1"},  {kOnceOnly,   4, "BBFFB",     "3!230!3!"},  {kOnceOnly,   1, "FB",   "0!0!"},
        {kContinuous, 4, "FFFFF",   "12301"},   {kContinuous, 4, "BBFF",      "3230"},      {kContinuous, 1, "FB",   "00"},
        {kPingPong,   4, "FFBBF",   "12101"},   {kPingPong,   4, "FFFFFFFFF", "123210123"}, {kPingPong,   2, "FFFF", "1010"},
        {kPingPong,   2, "BBFB",    "1010"},    {kPingPong,   1, "FFBB",      "0000"},      {kPingPong,   4, "BBBBBBB", "1232101"},
        // clang-format on
    };
    for (const auto& [iRepeat, iFrames, buttons, expected] : walks) {
        AnimationRecord record;
        record.iRepeat = iRepeat;
        record.iFrames = iFrames;
        PlayState state;
        std::string shown;
        for (const char button : buttons) {
            const bool stops = button == 'F' ? NextFrame(state, record) : PreviousFrame(state, record);
            shown += std::to_string(state.iCurrentFrame);
            shown.append(stops ? 1 : 0, '!');
        }
        EXPECT_EQ(shown, expected) << iRepeat << " " << buttons;
    }
}

TEST(PlayerLayout, ChangesBetween153And154Pixels) {
    const PlayerLayout narrow = LayoutOf(153, 36, 8), wide = LayoutOf(154, 36, 8);
    EXPECT_EQ(narrow.pictureLeft, 7);
    EXPECT_EQ(narrow.controlLeft, (std::array<std::int32_t, 5>{8, 32, 56, 80, 112}));
    EXPECT_EQ(wide.pictureLeft, 8);
    EXPECT_EQ(wide.controlLeft, (std::array<std::int32_t, 5>{7, 31, 55, 79, 111}));
}

// ---- the setup dialog ----

TEST(SetupRules, TheFirstFaultIsTold) {
    const SetupTexts good{{"game.sna", "", "0", "16", "8", "2", "1", "1"}, 0};
    constexpr std::int64_t kLength = 49179;
    const std::string kAddress = "Address must be between 0 and length of specified file -1 (49178)";
    const std::string kWidth = "Width must be between 8 and 256", kLines = "Lines must be between 1 and 192";
    const struct {
        SetupField field;
        std::string typed, message; // empty: accepted
    } cases[] = {
        // clang-format off
        {kSnapFileField, "",     "Snapshot filename must be entered"},
        {kOffsetField,  "  ",    "Please enter file offset"},     {kOffsetField, "49178", ""},
        {kOffsetField,  "49179", kAddress},                       {kOffsetField, "1e99",  kAddress},
        {kWidthField,   "",      "Please enter width"},           {kWidthField,  "abc",   kWidth},
        {kWidthField,   "12",    "Width must be divisible by 8"}, {kWidthField,  "264",   kWidth},
        {kLinesField,   "",      "Please enter number of lines"}, {kLinesField,  "193",   kLines},
        {kLinesField,   "0.5",   kLines} /* even */,              {kLinesField,  "192",   ""},
        {kFramesField,  "",      "Please enter number of frames"},
        {kFramesField,  "1",     "Frames must be greater than 1"},
        {kFramesField,  "1e5",   "Frames must be between 2 and 32767"},
        {kStepField,    "",      "Please enter frame step"},
        {kStepField,    "0",     "Step must be greater than 1"},
        {kStepField,    "1e10",  "Step must be between 1 and 2147483647"},
        {kPauseField,   "",      "Please enter frame pause"},
        {kPauseField,   "-2",    "Pause must be greater than 1"},
        {kPauseField,   "32768", "Pause must be between 1 and 32767"},
        // clang-format on
    };
    for (const auto& each : cases) {
        SetupTexts texts = good;
        texts.fields[each.field] = each.typed;
        const auto fault = ValidateSettings(texts, kLength);
        EXPECT_EQ(fault ? fault->sMessage : "", each.message) << each.typed;
    }
    SetupTexts texts = good;
    texts.iRepeatIndex = -1;
    texts.fields[kPauseField].clear(); // comes after the list
    EXPECT_EQ(ValidateSettings(texts, kLength)->field, kRepeatField);
    texts.fields[kOffsetField] = std::string("9"); // and the offset before everything else
    EXPECT_EQ(ValidateSettings(texts, 9)->field, kOffsetField);
}

TEST(SetupRules, LineBreaksOfAnyKindAreOneOnTheScreen) {
    EXPECT_EQ(NotesOnScreen("a\r\nb\rc\nd\r\n"), "a\nb\nc\nd\n");
    const std::string kLong(499, 'x');
    EXPECT_EQ(NotesInRecord(kLong + "\n", "c\nd"), kLong + "\n") << "two codes do not fit";
    EXPECT_EQ(NotesInRecord(kLong + "\n", "c\r\nd"), kLong + "\r\n");
}

} // namespace
} // namespace lumrake
