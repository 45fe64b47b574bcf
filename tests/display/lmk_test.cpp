/// The display library against the address of one pixel. Random cases come from fixed seeds.
#include "snapshot/rules/addressing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;
using lmk::BitPicture;
using lmk::DeviceContext;
using lmk::Rect;
using lumrake::ViewNumbers;

/// The numbers of a view as they are asked for.
struct View {
    std::int32_t offset, width, lines, columns, options;

    /// What is then shown.
    ViewNumbers Held() const {
        const auto in = [](int least, int value, int most) {
            return static_cast<std::int16_t>(std::clamp(value, least, most));
        };
        return {.lOffset = offset,
                .iWidth = static_cast<std::int16_t>(in(8, width, 256) & ~7),
                .iLines = in(1, lines, 512),
                .iColumns = in(1, columns, 16),
                .iMode = static_cast<std::int16_t>(options & 15),
                .iUpsideDown = static_cast<std::int16_t>(options >> 7 & 1)};
    }
};

/// Without memory any length shows nothing.
void Show(DeviceContext& context, const View& v, const Bytes& memory) {
    const auto length = memory.empty() ? v.lines : static_cast<std::int32_t>(memory.size());
    EXPECT_EQ(lmk::zxShowMem(&context, memory.data(), v.offset, length, v.width, v.lines, v.columns,
                             v.options, 7, nullptr),
              1);
}

class Random {
  public:
    explicit Random(unsigned seed) : engine_(seed) {}
    int operator()(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    Bytes Noise(int count) {
        Bytes bytes(static_cast<std::size_t>(count));
        std::generate(bytes.begin(), bytes.end(), [this] { return static_cast<std::uint8_t>(engine_()); });
        return bytes;
    }
    void Fill(BitPicture& picture, int width, int height) {
        picture.Resize(width, height);
        for (int i = 0; i < width * height; ++i) {
            const int x = i % width, bit = (*this)(0, 1) << (7 - x % 8);
            picture.Row(i / width)[x / 8] = static_cast<std::uint8_t>(picture.Row(i / width)[x / 8] | bit);
        }
    }

  private:
    std::mt19937 engine_;
};

/// Mostly within the limits, and then as Screen and Text have them.
View RandomView(Random& random, int length) {
    constexpr std::int32_t kWild[] = {std::numeric_limits<std::int32_t>::min(), -1, 0, 7, 1 << 20,
                                      std::numeric_limits<std::int32_t>::max()};
    const int mode = random(0, 4);
    View v{random(-40, length + 10), 8 * random(1, 32), random(1, random(0, 3) == 0 ? 512 : 70),
           random(1, 16), mode + 16 * random(1, 5) + 128 * random(0, 1)};
    if (mode == lmk::kScreen && random(0, 3) != 0) {
        v.width = 256, v.lines = 192, v.columns = 1;
    }
    if (mode == lmk::kText && random(0, 3) != 0) {
        v.columns = 1;
    }
    for (std::int32_t* number : {&v.offset, &v.width, &v.lines, &v.columns, &v.options}) {
        *number = random(0, 99) == 0 ? kWild[random(0, 5)] : *number;
    }
    return v;
}

bool Holds(const Rect& r, int x, int y) {
    return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
}

/// The context shows `memory` inside the clip and `before` outside it.
testing::AssertionResult Follows(const DeviceContext& context, const View& asked, const Bytes& memory,
                                 const Rect& clip = {0, 0, 4096, 512}, const Bytes& before = {}) {
    const BitPicture& picture = context.Picture();
    const ViewNumbers v = asked.Held();
    const auto failure = [&] { return testing::AssertionFailure() << "mode " << v.iMode << ": "; };
    const int factor = lmk::ZoomIndexToFactor(asked.options >> 4 & 7);
    if (picture.Width() != v.PictureWidth() || picture.Height() != v.iLines ||
        context.Factor() != std::max(factor, 1)) {
        return failure() << "wrong size";
    }
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            const Bytes& shown = Holds(clip, x, y) ? memory : before;
            if (picture.PixelAt(x, y) != (lumrake::ReadPixel(shown, v, {x, y}) == 1)) {
                return failure() << x << ", " << y;
            }
        }
        for (int b = picture.Width() / 8; b < picture.Stride(); ++b) {
            if (picture.Row(y)[b] != 0) {
                return failure() << "bits right of the picture in row " << y;
            }
        }
    }
    return testing::AssertionSuccess();
}

TEST(Lmk, RandomViewsFollowTheRuleOfOnePixelAndAClipLeavesAllOtherBits) {
    Random random(2);
    DeviceContext context; // one for all, so that every drawing finds the bits of another
    for (int i = 0; i < 400; ++i) {
        const auto before = random.Noise(i % 50 == 0 ? 0 : random(1, random(0, 1) == 0 ? 300 : 12000));
        View view = RandomView(random, static_cast<int>(before.size()));
        Show(context, view, before);
        ASSERT_TRUE(Follows(context, view, before));
        const auto [width, lines] = std::pair(context.Picture().Width(), context.Picture().Height());
        const Rect clip{random(-50, width), random(-20, lines), i % 2 == 0 ? 1 : random(-5, width),
                        i % 2 == 0 ? 1 : random(-5, lines)};
        const auto after = random.Noise(2900);
        context.SetClip(clip);
        Show(context, view, after);
        ASSERT_TRUE(Follows(context, view, after, clip, before));
        view.lines = lines % 512 + 1; // another size: the clip counts for nothing
        Show(context, view, after);
        ASSERT_TRUE(Follows(context, view, after));
        context.ResetClip();
    }
    EXPECT_EQ(lmk::zxShowMem(nullptr, nullptr, 0, 0, 8, 1, 1, 0, 7, nullptr), 0);
}

TEST(Lmk, TheScreenIsThreePartsOfEightRowsOfEightLines) {
    for (int y = 0; y < 192; ++y) {
        EXPECT_EQ(lmk::zxScreenOffset(8 * 31 + y % 8, y),
                  2048 * (y / 64) + 256 * (y % 8) + 32 * (y / 8 % 8) + 31);
    }
}

TEST(BitPicture, ExpandShowsEveryPixelAtEveryScale) {
    Random random(3);
    BitPicture picture;
    picture.foreColour = 0xffabcdef, picture.backColour = 0xff123456;
    for (int i = 0; i < 4000; ++i) {
        random.Fill(picture, random(0, 70), random(0, 12));
        const int scale = random(0, 2) == 0 ? random(1, 64) : 1 << random(0, 4);
        const Rect screen{random(-60, picture.Width() * scale + 20),
                          random(-30, picture.Height() * scale + 20), random(0, 150), random(0, 40)};
        const std::ptrdiff_t stride = screen.width + random(0, 3);
        constexpr std::uint32_t kUntouched = 0x55555555;
        std::vector<std::uint32_t> target(static_cast<std::size_t>(stride * screen.height), kUntouched);
        picture.Expand(screen, scale, target.data(), stride);
        for (int y = 0; y < screen.height; ++y) {
            for (int x = 0; x < stride; ++x) {
                const int sx = screen.x + x, sy = screen.y + y;
                const bool set = sx >= 0 && sy >= 0 && picture.PixelAt(sx / scale, sy / scale);
                const std::uint32_t colour = set ? picture.foreColour : picture.backColour;
                ASSERT_EQ(target[static_cast<std::size_t>(y * stride + x)],
                          x < screen.width ? colour : kUntouched)
                    << "scale " << scale << " at " << sx << ", " << sy;
            }
        }
        // A row for a bitmap file: filled up with 0, and nothing written behind its last byte.
        const int row = random(-1, picture.Height()), bytes = (picture.Width() * scale + 7) / 8;
        Bytes bits(static_cast<std::size_t>(bytes) + 1, 0xA5);
        picture.ExpandRowBits(row,
                              scale == 1    ? random(-1, 1)
                              : scale == 64 ? random(64, 70)
                                            : scale,
                              bits.data());
        for (int x = 0; x < 8 * bytes; ++x) {
            ASSERT_EQ((bits[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1) != 0,
                      picture.PixelAt(x / scale, row))
                << "scale " << scale << " at " << x;
        }
        ASSERT_EQ(bits.back(), 0xA5);
    }
}

TEST(BitPicture, CopiesAreasOfItselfAndOthers) {
    Random random(4);
    BitPicture picture;
    for (int i = 0; i < 2000; ++i) {
        random.Fill(picture, random(0, 40), random(1, 6));
        picture.foreColour = 0xff000000 + static_cast<std::uint32_t>(i);
        const Rect area{random(-60, 60), random(-8, 8), random(-1, 70), random(-1, 9)};
        BitPicture copy;
        random.Fill(copy, random(0, 9), 3);
        copy.CopyArea(i % 4 == 0 ? (copy = picture) : picture, area); // onto itself too
        ASSERT_EQ(copy.Width(), std::max(area.width, 0));
        ASSERT_EQ(copy.Height(), std::max(area.height, 0));
        ASSERT_EQ(copy.foreColour, picture.foreColour);
        for (int y = 0; y < copy.Height(); ++y) {
            for (int x = 0; x < 8 * copy.Stride(); ++x) { // with the bits right of the picture
                ASSERT_EQ((copy.Row(y)[x / 8] >> (7 - x % 8) & 1) != 0,
                          x < area.width && picture.PixelAt(area.x + x, area.y + y))
                    << area.x << ", " << area.y << ": " << x << ", " << y;
            }
        }
    }
}

} // namespace
