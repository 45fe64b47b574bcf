#include "snapshot/snapshot_probe.h"

#include <QImage>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Window = testing::SnapshotWindow;

struct Export : testing::EditorTest {};

/// Every pixel of the file is what the window shows, in its colours.
TEST_F(Export, ViewAsBitmapIsWhatIsShown) {
    Window window(stage, testing::NoiseBytes(200), 24, 20);
    window.form->SetAttribute(64 + 2 + 5 * 8, true);
    window.form->SetFlip(1);
    for (std::int16_t iZoom = 1; iZoom <= 5; ++iZoom) {
        window.form->SetZoom(iZoom);
        stage.files = {stage.Path(QStringLiteral("  View%1.BMP ").arg(iZoom))};
        window.form->ExportViewToBMP();
        const QImage image(stage.Path(QStringLiteral("view%1.bmp").arg(iZoom))); // lower case, without blanks
        const lmk::DeviceContext& shown = window.probe.Picture().hDC();
        ASSERT_EQ(image.size(), QSize(shown.ScreenWidth(), shown.ScreenHeight()));
        for (int i = 0; i < image.width() * image.height(); ++i) {
            const int x = i % image.width(), y = i / image.width();
            ASSERT_EQ(image.pixel(x, y), shown.ScreenPixel(x, y))
                << "zoom " << iZoom << ": " << x << "," << y;
        }
    }
}

/// 65536 pixels are more than the toolkit reads, so the file is looked at as it lies: a header of 62 bytes,
/// then rows of 8192 bytes, the lowest first.
TEST_F(Export, TheLargestViewFits) {
    Settings.iDefaultColumns = 16;
    Window window(stage, testing::NoiseBytes(256 * 1024), 256, 512);
    window.form->SetZoom(5);
    stage.files = {stage.Path(QStringLiteral("large.bmp"))};
    window.form->ExportViewToBMP();
    const Bytes file = stage.ReadFile(QStringLiteral("large.bmp"));
    ASSERT_EQ(file.size(), 62U + 65536U / 8U * 8192U);
    const Bytes sizes{0, 0, 1, 0, 0, 32, 0, 0, 1, 0, 1, 0}; // width, height, planes, bits a pixel
    EXPECT_TRUE(std::equal(sizes.begin(), sizes.end(), file.begin() + 18));
    for (int i = 0; i < 1000; ++i) { // all over it, up to the far corner
        const int x = 65535 - i * 65, y = i * 37 % 8192;
        const int byte =
            file[62U + static_cast<std::size_t>(8191 - y) * 8192U + static_cast<std::size_t>(x / 8)];
        ASSERT_EQ((byte >> (7 - x % 8)) & 1,
                  window.probe.Picture().hDC().Picture().PixelAt(x / 16, y / 16) ? 1 : 0);
    }
}

TEST_F(Export, SelectionIsOnePixelForEachPicturePixel) {
    Window window(stage, Bytes{0b00000010, 0b10000000, 0b00000001, 0b10000000}, 16, 2);
    window.form->SetZoom(3);
    window.probe.DrawNet(0, 0, 8, 4);
    window.form->Copy(false);
    window.probe.DrawNet(6 * 4, 4, 20 * 4, -4); // past the right and the upper edge
    stage.files = {stage.Path(QStringLiteral("part.bmp"))};
    window.form->ExportSelectionToBMP();
    const QImage image(stage.Path(QStringLiteral("part.bmp")));
    ASSERT_EQ(image.size(), QSize(14, 2));
    const lmk::BitPicture& shown = window.probe.Picture().hDC().Picture();
    for (int x = 0; x < 14; ++x) {
        EXPECT_EQ(image.pixel(x, 0), shown.backColour) << x; // outside: paper
        EXPECT_EQ(image.pixel(x, 1), x == 0 || x == 2 ? shown.foreColour : shown.backColour) << x;
    }
    EXPECT_EQ(frmClip::Instance().picClip.Width(), 2) << "the block that was copied is left alone";
}

TEST_F(Export, RawFileReplacesALongerOne) {
    const Bytes memory{9, 9, 9, 9, 1, 2, 3, 4, 5, 6, 7, 8};
    Settings.lDefaultOffset = 4;
    Window window(stage, memory, 16, 8); // 16 bytes, of which 8 are there
    window.form->SetMode(kText, true);
    window.form->SetFlip(1);
    stage.MakeFile(QStringLiteral("out.raw"), Bytes(100, 0xee));
    stage.files = {stage.Path(QStringLiteral("OUT.RAW")), stage.Path(QStringLiteral("OUT.RAW"))};
    stage.answers = {BoxAnswer::No, BoxAnswer::Yes};
    window.form->ExportViewToRaw();
    EXPECT_EQ(stage.ReadFile(QStringLiteral("out.raw")).size(), 100U) << "the answer was No";
    window.form->ExportViewToRaw();
    EXPECT_EQ(stage.ReadFile(QStringLiteral("out.raw")),
              (Bytes{1, 0, 2, 0, 3, 0, 4, 0, 5, 0, 6, 0, 7, 0, 8, 0}));
}

TEST_F(Export, FailuresAreToldAndCancelIsSilent) {
    Window window(stage, Bytes(64), 16, 16);
    window.probe.DrawNet(0, 0, 8, 8);
    const auto exportAll = [this, &window](const QString& sFile) {
        stage.files = {sFile, sFile, sFile};
        window.form->ExportViewToBMP();
        window.form->ExportViewToRaw();
        window.form->ExportSelectionToBMP();
        return std::exchange(stage.boxes, {});
    };
    EXPECT_TRUE(exportAll(QString()).empty());
    std::vector<QString> boxes = exportAll(stage.Path(QStringLiteral("nowhere/out")));
    window.probe.DrawNet(0, 0, 8, 0);
    window.form->ExportSelectionToBMP(); // nothing to export: told without a dialog
    boxes.insert(boxes.end(), stage.boxes.begin(), stage.boxes.end());
    ASSERT_EQ(boxes.size(), 4U);
    for (const QString& box : boxes) {
        EXPECT_TRUE(box.startsWith(QStringLiteral("Save|"))) << box.toStdString();
    }
}

} // namespace
} // namespace lumrake
