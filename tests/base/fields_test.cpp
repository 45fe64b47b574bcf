/// Numbers and texts as records and fields hold them.
#include "base/fixed_string.h"
#include "base/numbers.h"
#include "base/twips.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace lumrake {
namespace {

TEST(Numbers, HalvesGoToTheEvenNeighbour) {
    const std::pair<double, int> cases[] = {{0.5, 0},   {1.5, 2},     {-0.5, 0},
                                            {-1.5, -2}, {-49.5, -50}, {29.71, 30}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(HeldTo<std::int32_t>(value), rounded) << value;
    }
    EXPECT_EQ(PixelsFromTwips(280), 19);
    EXPECT_EQ(TextOfNumber(4.5), "4.5");
    EXPECT_EQ(TextOfNumber(-0.0), "0");
    EXPECT_EQ(IsDivisible(5, 0), -1);
    EXPECT_EQ(IsDivisible(std::numeric_limits<std::int32_t>::min(), -1), -1);
    EXPECT_EQ(FloorDiv(-1, 4), -1);
    EXPECT_EQ(FloorDiv(-4, 4), -1);
}

TEST(RecordText, TheCodesFrom80To9FAreTheirOwnCharacters) {
    const std::string text = // five of the codes are empty and pass through
        "\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
        "\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
    std::string codes(32, ' ');
    std::iota(codes.begin(), codes.end(), '\x80');
    EXPECT_EQ(EncodeRecordText(text, 32), codes);
    EXPECT_EQ(DecodeRecordText(codes), text);
}

TEST(RecordText, CodePageFirstUtf8ForWhatItLacks) {
    const std::tuple<const char*, std::size_t, std::string> cases[] = {
        {"caf\xC3\xA9", 10, "caf\xE9"},
        {"\xE2\x82\xAC", 10, "\x80"},                 // the euro sign has a place of its own
        {"\xC2\x81", 10, "\x81"},                     // an empty code passes through
        {"\xD0\xB8\xD0\xB3", 10, "\xD0\xB8\xD0\xB3"}, // Cyrillic is written in UTF-8
        {"bad\xFF", 8, "bad?"},
        {"\xC3\x84\xE2\x82\xAC", 10, "\xEF\xBB\xBF\xC3\x84\xE2\x82\xAC"}, // C4 80 would be another letter
    };
    for (const auto& [text, width, bytes] : cases) {
        EXPECT_EQ(EncodeRecordText(text, width), bytes) << text;
    }
    // Bytes that are no UTF-8 are Windows-1252.
    EXPECT_EQ(DecodeRecordText("\xD0\xB8\xD0"), "\xC3\x90\xC2\xB8\xC3\x90"); // a broken end: not UTF-8
    EXPECT_EQ(DecodeRecordText("\xC3\xA9"), "\xC3\x83\xC2\xA9"); // nothing in it that Windows-1252 lacks
    EXPECT_EQ(DecodeRecordText("\xED\xA0\x80"),
              "\xC3\xAD\xC2\xA0\xE2\x82\xAC"); // a lone surrogate is not either
}

TEST(RecordText, TheLongestHeadThatFitsReadsBackAsItWas) {
    // Neighbours whose bytes in Windows-1252 are one character in UTF-8.
    constexpr const char* kCharacters[] = {"a",      "\u00C4", "\u20AC", "\u00EF", "\u00BB",
                                           "\u00BF", "\u0081", "\u0438", "\uFEFF"};
    std::mt19937 random(1);
    for (std::size_t round = 0; round < 20000; ++round) {
        const std::size_t width = random() % 24;
        std::string text, longest;
        for (std::size_t length = random() % 16; length > 0; --length) {
            text += kCharacters[(random() % 3 + round) % std::size(kCharacters)];
            longest = FitsRecord(text, width) ? text : longest;
        }
        ASSERT_LE(EncodeRecordText(text, width).size(), width);
        ASSERT_EQ(DecodeRecordText(EncodeRecordText(text, width)), longest) << text;
    }
}

TEST(RecordText, AFieldKeepsItsBytesUntilItChanges) {
    FixedString<8> field;
    const std::array<char, 8> odd = {' ', 'a', '\xD0', '\t', ' ', ' ', ' ', ' '};
    field.Bytes() = odd;
    field.Set(field.Text());
    EXPECT_EQ(field.Bytes(), odd);
    field.Set(field.Trimmed());
    EXPECT_EQ(field.Bytes(), odd);
    EXPECT_EQ(field.Trimmed(), "a\xC3\x90\t"); // only blanks are trimmed
    field.Set("b");
    EXPECT_EQ(field.Text(), "b       ");
    field.Set("");
    EXPECT_EQ(field.Text(), std::string(8, ' '));
    field.Set(" \xC3\x84\xC2\x81"); // with the mark in front of the blank
    EXPECT_EQ(field.Trimmed(), "\xC3\x84\xC2\x81");
}

} // namespace
} // namespace lumrake
