#include "snapshot/frmClip.h"
#include "snapshot/snapshot_probe.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>

namespace lumrake {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Window = testing::SnapshotWindow;

class Export : public ::testing::Test {
  protected:
    ~Export() override { frmClip::Instance().SetData({}); }

    QImage Read(const QString& name) const { return QImage(stage.Path(name)); }

    testing::Stage stage;
};

/// Every pixel of the file is what the window shows, in its colours.
TEST_F(Export, ViewAsBitmapIsWhatIsShown) {
    for (std::int16_t iZoom = 1; iZoom <= 5; ++iZoom) {
        Window window(stage, testing::NoiseBytes(200), 24, 20);
        window.form->SetAttribute(64 + 2 + 5 * 8, true);
        window.form->SetFlip(1);
        window.form->SetZoom(iZoom);
        stage.files = {stage.Path(QStringLiteral("  View%1.BMP ").arg(iZoom))};
        window.form->ExportViewToBMP();
        const QImage image = Read(QStringLiteral("view%1.bmp").arg(iZoom)); // lower case, without the blanks
        const lmk::DeviceContext& shown = window.probe.Picture().hDC();
        ASSERT_EQ(image.size(), QSize(shown.ScreenWidth(), shown.ScreenHeight()));
        EXPECT_EQ(image.depth(), 1);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                ASSERT_EQ(image.pixel(x, y), shown.ScreenPixel(x, y))
                    << "zoom " << iZoom << ": " << x << "," << y;
            }
        }
        EXPECT_EQ(window.probe.Changed(), 0);
    }
}

TEST_F(Export, TheLargestViewFits) {
    Settings.iDefaultColumns = 16;
    Window window(stage, testing::NoiseBytes(256 * 1024), 256, 512);
    window.form->SetZoom(5);
    stage.files = {stage.Path(QStringLiteral("large.bmp"))};
    window.form->ExportViewToBMP();
    // 65536 pixels are more than the toolkit reads, so the file is looked at as it lies: a header of 62
    // bytes, then rows of 8192 bytes, the lowest first.
    const Bytes file = stage.ReadFile(QStringLiteral("large.bmp"));
    ASSERT_EQ(file.size(), 62U + 65536U / 8U * 8192U);
    const Bytes sizes{0, 0, 1, 0, 0, 32, 0, 0, 1, 0, 1, 0}; // width, height, planes, bits a pixel
    EXPECT_TRUE(std::equal(sizes.begin(), sizes.end(), file.begin() + 18));
    const lmk::DeviceContext& shown = window.probe.Picture().hDC();
    for (int i = 0; i < 1000; ++i) { // all over it, up to the far corner
        const int x = 65535 - i * 65, y = i * 37 % 8192;
        const int byte =
            file[62U + static_cast<std::size_t>(8191 - y) * 8192U + static_cast<std::size_t>(x / 8)];
        ASSERT_EQ((byte >> (7 - x % 8)) & 1, shown.Picture().PixelAt(x / 16, y / 16) ? 1 : 0)
            << x << "," << y;
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
    const QImage image = Read(QStringLiteral("part.bmp"));
    ASSERT_EQ(image.size(), QSize(14, 2));
    const lmk::BitPicture& shown = window.probe.Picture().hDC().Picture();
    for (int x = 0; x < 14; ++x) {
        EXPECT_EQ(image.pixel(x, 0), shown.backColour) << x; // outside: paper
        EXPECT_EQ(image.pixel(x, 1), x == 0 || x == 2 ? shown.foreColour : shown.backColour) << x;
    }
    EXPECT_EQ(frmClip::Instance().picClip.Width(), 2) << "the block that was copied is left alone";
}

TEST_F(Export, ASelectionWithoutSizeIsToldAndNotExported) {
    Window window(stage, Bytes(4), 16, 2);
    for (const QPointF to : {QPointF(8, 0), QPointF(0, 2), QPointF(0, 0)}) {
        window.probe.DrawNet(0, 0, static_cast<float>(to.x()), static_cast<float>(to.y()));
        window.form->ExportSelectionToBMP(); // a dialog would fail the test
        ASSERT_EQ(stage.boxes.size(), 1U);
        EXPECT_TRUE(stage.boxes[0].startsWith(QStringLiteral("Save|")));
        stage.boxes.clear();
    }
}

TEST_F(Export, RawFileReplacesALongerOne) {
    Bytes memory(20);
    for (std::size_t i = 0; i < memory.size(); ++i) {
        memory[i] = static_cast<std::uint8_t>(i);
    }
    for (const std::int16_t iMode : {kGraphics, kText}) {
        Settings.iDefaultMode = iMode;
        Settings.lDefaultOffset = 4;
        Window window(stage, memory, 16, 16); // 32 bytes, of which 16 are there
        window.form->SetFlip(1);
        stage.MakeFile(QStringLiteral("out.raw"), Bytes(100, 0xee));
        stage.files = {stage.Path(QStringLiteral("OUT.RAW")), stage.Path(QStringLiteral("OUT.RAW"))};
        stage.answers = {BoxAnswer::No, BoxAnswer::Yes};
        window.form->ExportViewToRaw();
        EXPECT_EQ(stage.ReadFile(QStringLiteral("out.raw")).size(), 100U) << "the answer was No";
        window.form->ExportViewToRaw();
        Bytes expected(32);
        for (std::size_t i = 0; i < 16; ++i) {
            const std::size_t place = iMode == kText ? i % 8 * 2 + i / 8 : i;
            expected[place] = memory[4 + i];
        }
        EXPECT_EQ(stage.ReadFile(QStringLiteral("out.raw")), expected) << "mode " << iMode;
        EXPECT_TRUE(stage.boxes.back().endsWith(QStringLiteral("out.raw already exists, overwrite?")));
    }
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
    const std::vector<QString> boxes = exportAll(stage.Path(QStringLiteral("nowhere/out")));
    ASSERT_EQ(boxes.size(), 3U);
    for (const QString& box : boxes) {
        EXPECT_TRUE(box.startsWith(QStringLiteral("Save|"))) << box.toStdString();
    }
    EXPECT_EQ(stage.dialogs.size(), 6U);
}

} // namespace
} // namespace lumrake
