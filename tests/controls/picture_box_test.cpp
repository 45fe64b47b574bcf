/// Pictures, frames and texts as they come out on the screen.
#include "controls/colour_button.h"
#include "controls/picture_box.h"
#include "controls/spin_bar.h"
#include "preferences/colour_swatch.h"
#include "support/forms_support.h"

#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QTextEdit>

namespace lumrake {
namespace {

/// A picture of 48 x 40 pixels that hangs out of its container, partly under another widget.
class PictureOnScreen : public ::testing::TestWithParam<std::tuple<int, int>> {
  public:
    PictureOnScreen() {
        window.resize(190, 140);
        container.setGeometry(13, 7, 150, 120);
        box.SetBorder(border);
        box.SetBackground(QColor(1, 2, 3));
        box.setGeometry(-21, -10, 260, 200);
        cover.setGeometry(60, 50, 17, 9);
        cover.setAutoFillBackground(true);
        cover.setPalette(QColor(9, 8, 7));
        Draw(1);
        window.show();
        QCoreApplication::processEvents();
    }

    void Draw(std::uint32_t seed) {
        const auto memory = testing::NoiseBytes(240, seed);
        constexpr std::int32_t palette[16] = {0x112233, 0, 0, 0, 0, 0, 0, 0xccbbaa};
        lmk::zxShowMem(&box.hDC(), memory.data(), 0, 240, 48, 40, 1, 16 * zoom, 0x38, palette);
    }
    /// What the pixel rule says of a pixel of the box, inside its border.
    QRgb Rule(const lmk::DeviceContext& context, QPoint at) const {
        const QPoint place = at - QPoint(border, border);
        return place.x() < context.ScreenWidth() && place.y() < context.ScreenHeight()
                   ? context.ScreenPixel(place.x(), place.y())
                   : qRgb(1, 2, 3);
    }
    /// Compares the visible part of the box with `now` inside `fresh` and with `before` outside.
    void ExpectScreen(const lmk::DeviceContext& now, const lmk::DeviceContext& before, const QRect& fresh) {
        const QImage screen = window.screen()->grabWindow(window.winId()).toImage();
        const QRect inner = box.rect().adjusted(border, border, -border, -border);
        for (int y = 0; y < container.height(); ++y) {
            for (int x = 0; x < container.width(); ++x) {
                const QPoint at = QPoint(x, y) - box.pos();
                if (inner.contains(at)) {
                    const QRgb expected = cover.geometry().contains(at)
                                              ? qRgb(9, 8, 7)
                                              : Rule(fresh.contains(at) ? now : before, at);
                    ASSERT_EQ(screen.pixel(container.pos() + QPoint(x, y)), expected) << x << ", " << y;
                }
            }
        }
    }

    const int zoom = std::get<0>(GetParam()), border = std::get<1>(GetParam());
    QWidget window, container{&window};
    PictureBox box{&container};
    QWidget cover{&box};
};

TEST_P(PictureOnScreen, FollowsThePixelRuleWhereItIsRepainted) {
    const lmk::DeviceContext before = box.hDC();
    ExpectScreen(before, before, box.rect());
    Draw(2);
    const QRect part(40, 30, 33, 27); // reaches under the cover
    box.repaint(part);
    ExpectScreen(box.hDC(), before, part);

    QImage print(box.size() * 2, QImage::Format_RGB32);
    QPainter painter(&print);
    painter.scale(2, 2);
    cover.hide();
    box.render(&painter);
    const QRect inner = box.rect().adjusted(border, border, -border, -border);
    for (int i = 0; i < inner.width() * inner.height(); i += 5) {
        const QPoint at = inner.topLeft() + QPoint(i % inner.width(), i / inner.width());
        ASSERT_EQ(print.pixel(2 * at), Rule(box.hDC(), at)) << "in print: " << at.x() << ", " << at.y();
    }
}

INSTANTIATE_TEST_SUITE_P(ZoomAndBorder, PictureOnScreen,
                         ::testing::Combine(::testing::Values(1, 3), ::testing::Values(0, 2)));

/// Button of an event (0: a move), buttons held afterwards, what the form is told: d press, u release, m move.
TEST(PictureMouse, EveryPressHasItsReleaseAndSideButtonsDoNothing) {
    PictureBox box;
    std::string told;
    box.MouseDown = [&told](const MouseArgs& args) { (told += 'd') += std::to_string(args.Button); };
    box.MouseMove = [&told](const MouseArgs& args) { (told += 'm') += std::to_string(args.Button); };
    box.MouseUp = [&told](const MouseArgs& args) { (told += 'u') += std::to_string(args.Button); };
    const std::tuple<int, int, const char*> cases[] = {
        {1, 1, "d1"}, {2, 3, "d2"},   {0, 3, "m3"},   {2, 1, "u2"},  {8, 9, ""},
        {0, 9, "m1"}, {8, 1, ""},     {0, 0, "u1m0"}, // a menu had the release
        {4, 4, "d4"}, {4, 4, "u4d4"}, {16, 20, ""},   {4, 16, "u4"}, {0, 16, "m0"}};
    for (const auto& [button, held, expected] : cases) {
        const auto type = button == 0            ? QEvent::MouseMove
                          : (held & button) != 0 ? QEvent::MouseButtonPress
                                                 : QEvent::MouseButtonRelease;
        QMouseEvent event(type, {}, {}, {}, Qt::MouseButton(button), Qt::MouseButtons(held), {});
        QCoreApplication::sendEvent(&box, &event);
        EXPECT_EQ(std::exchange(told, {}), expected) << button;
    }
}

/// On a dense screen a place inside a logical pixel belongs to that pixel, left of the widget too.
TEST(MousePlace, IsRoundedDown) {
    // in the window, where the widget begins at 12; as given, a whole number being rounded; the place
    const std::tuple<double, double, double> cases[] = {
        {20.0, 8.0, 8}, {20.25, 8.0, 8}, {20.5, 9.0, 8},    {20.75, 9.0, 8},
        {20.5, 8.5, 8}, {11.5, 0.0, -1}, {11.25, -1.0, -1},
    };
    for (const auto& [window, given, place] : cases) {
        const QPointF inWindow(window, window);
        const QMouseEvent event(QEvent::MouseMove, {given, given}, inWindow, inWindow, Qt::NoButton, {}, {});
        const MouseArgs args = MouseArgsOf(event, 0);
        EXPECT_EQ(args.X, place) << window;
        EXPECT_EQ(args.Y, place) << window;
    }
}

TEST(Frames, AreWholeAndEquallyThickAtEveryScale) {
    QWidget window;
    const std::array<QWidget*, 4> boxes = {new ColourSwatch(&window), new ColourButton(&window),
                                           new SpinBar(Qt::Horizontal, &window), new QTextEdit(&window)};
    for (std::size_t i = 0; i < 12; ++i) {
        const double scale = std::array{1.0, 1.5, 2.0}[i / 4];
        const int edge = qRound(scale), line = i % 4 == 3 ? static_cast<int>(scale) : edge;
        boxes[i % 4]->setGeometry(7, 5, 25, 19);
        boxes[i % 4]->raise();
        QImage image((QSizeF(27, 21) * scale).toSize(), QImage::Format_RGB32); // one pixel around the box
        image.setDevicePixelRatio(scale);
        window.render(&image, {}, QRect(6, 4, 27, 21));
        for (int side = 0; side < 4; ++side, image = image.transformed(QTransform().rotate(90))) {
            for (int x = 0; x <= edge + line; ++x) {
                EXPECT_EQ(image.pixel(x, 7 * edge) == image.pixel(edge, edge), x >= edge && x < edge + line)
                    << "box " << i % 4 << " at " << scale << ", side " << side;
            }
        }
    }
}

} // namespace
} // namespace lumrake
