#include "snapshot/snapshot_probe.h"

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;

using Export = testing::SnapshotTest;

/// 65536 pixels are more than the toolkit reads, so the file is looked at as it lies: a header of 62 bytes,
/// then rows of 8192 bytes, the lowest first.
TEST_F(Export, TheLargestViewFits) {
    const SnapshotProbe window = Open(testing::NoiseBytes(256 * 1024), 256, 512, 16);
    window.form.SetZoom(5);
    window.form.SetFlip(1);
    files = {Path(QStringLiteral("large.bmp"))};
    window.form.ExportViewToBMP();
    const Bytes file = ReadFile(QStringLiteral("large.bmp"));
    ASSERT_EQ(file.size(), 62U + 8192U * 8192U);
    const Bytes sizes{0, 0, 1, 0, 0, 32, 0, 0, 1, 0, 1, 0}; // width, height, planes, bits a pixel
    EXPECT_TRUE(std::equal(sizes.begin(), sizes.end(), file.begin() + 18));
    const lmk::BitPicture& shown = window.Picture().hDC().Picture();
    for (int x = 0; x < 8192; ++x) { // the uppermost row; two bytes are one pixel
        ASSERT_EQ(file[file.size() - 8192U + static_cast<std::size_t>(x)],
                  shown.PixelAt(x / 2, 0) ? 0xff : 0);
    }
}

TEST_F(Export, SelectionIsOnePixelForEachPicturePixel) {
    const SnapshotProbe window = Open(Bytes{0b00000010, 0b10000000, 0b00000001, 0b10000000}, 16, 2);
    window.form.SetZoom(3);
    window.DrawNet(6 * 4, 4, 20 * 4, -4); // past the right and the upper edge
    files = {Path(QStringLiteral("part.bmp"))};
    window.form.ExportSelectionToBMP();
    const QImage image(Path(QStringLiteral("part.bmp")));
    ASSERT_EQ(image.size(), QSize(14, 2));
    const lmk::BitPicture& shown = window.Picture().hDC().Picture();
    for (int x = 0; x < 14; ++x) {
        EXPECT_EQ(image.pixel(x, 0), shown.backColour) << x; // outside: paper
        EXPECT_EQ(image.pixel(x, 1), x == 0 || x == 2 ? shown.foreColour : shown.backColour) << x;
    }
    EXPECT_NE(frmClip::Instance().IsEmpty(), 0) << "the clipboard is left alone";
}

TEST_F(Export, NoAndCancelWriteNothing) {
    const SnapshotProbe window = Open(Bytes(64), 16, 16);
    const QString out = MakeFile(QStringLiteral("out.raw"), Bytes(100, 0xee));
    window.DrawNet(0, 0, 8, 0);
    window.form.ExportSelectionToBMP();
    EXPECT_EQ(boxes.size(), 1U) << "a selection of nothing is told without a dialog";
    answers = {BoxAnswer::No, BoxAnswer::No};
    for (const QString& file : {QString(), out}) {
        files = {file, file};
        window.form.ExportViewToBMP();
        window.form.ExportViewToRaw();
    }
    EXPECT_TRUE(answers.empty());
    EXPECT_EQ(ReadFile(QStringLiteral("out.raw")), Bytes(100, 0xee));
}

} // namespace
} // namespace lumrake
