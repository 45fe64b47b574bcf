#include "platform/picture_box.h"

#include <QImage>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPaintEvent>
#include <QPainter>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace lumrake {

namespace {

/// Rows expanded at a time: with an exposure as wide as a screen they stay in the processor's cache.
constexpr int kStripRows = 32;

/// What `painter` paints into when that is memory of 32-bit pixels, `ratio` of them to a logical pixel and
/// moved by `offset`; else null. So it is on every screen, and expanding straight into it saves a copy of
/// every pixel.
QImage* PaintedImage(const QPainter& painter, int ratio, QPoint& offset) {
    const QPaintEngine* engine = painter.paintEngine();
    if (engine == nullptr || engine->type() != QPaintEngine::Raster ||
        engine->paintDevice()->devType() != QInternal::Image) {
        return nullptr;
    }
    auto* image = static_cast<QImage*>(engine->paintDevice());
    const QTransform& way = painter.deviceTransform();
    offset = QPoint(static_cast<int>(way.dx()), static_cast<int>(way.dy()));
    const bool isMovedOnly = way == QTransform(ratio, 0, 0, ratio, offset.x(), offset.y());
    const bool hasPixels =
        image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied;
    return isMovedOnly && hasPixels ? image : nullptr;
}

} // namespace

BitPictureView::BitPictureView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent); // every exposed pixel is painted, nothing needs clearing before
    setMouseTracking(true);
}

void BitPictureView::SetBorder(int pixels) {
    border_ = pixels;
    update();
}

void BitPictureView::SetBackground(const QColor& colour) {
    background_ = colour;
    update();
}

void BitPictureView::PaintOver(QPainter&, const QRect&) {}

void BitPictureView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect inner = rect().adjusted(border_, border_, -border_, -border_);
    for (const QRect& exposed : event->region()) {
        painter.setClipRect(exposed & inner);
        PaintPicture(painter, exposed & inner);
        PaintOver(painter, exposed & inner);
    }
    if (border_ > 0) {
        painter.setClipping(false);
        qDrawShadePanel(&painter, rect(), palette(), true, border_);
    }
}

void BitPictureView::PaintPicture(QPainter& painter, const QRect& exposed) const {
    const lmk::BitPicture* picture = ShownPicture();
    const int factor = ShownFactor();
    const QRect whole(border_, border_, picture == nullptr ? 0 : picture->Width() * factor,
                      picture == nullptr ? 0 : picture->Height() * factor);
    const QRect shown = exposed & whole;
    if (shown != exposed) {
        for (const QRect& bare : QRegion(exposed) - QRegion(whole)) {
            painter.fillRect(bare, background_);
        }
    }
    if (shown.isEmpty()) {
        return;
    }
    // A whole-number ratio goes into the factor and every device pixel is painted as it is; a fractional one
    // is left to the toolkit's scaling.
    const qreal ratio = devicePixelRatioF();
    const int fold = ratio == std::floor(ratio) ? static_cast<int>(ratio) : 1;
    const int width = shown.width() * fold;
    QPoint offset; // from the box's device pixels to the image's
    if (QImage* image = PaintedImage(painter, fold, offset)) {
        const QRect target = QRect(shown.topLeft() * fold + offset, shown.size() * fold) & image->rect();
        if (!target.isEmpty()) {
            const QPoint from = target.topLeft() - offset;
            auto* first = reinterpret_cast<std::uint32_t*>(image->scanLine(target.top())) + target.left();
            picture->Expand(
                {from.x() - border_ * fold, from.y() - border_ * fold, target.width(), target.height()},
                factor * fold, first, image->bytesPerLine() / 4);
        }
        return;
    }
    const int strip = std::max(1, kStripRows / fold);
    static std::vector<std::uint32_t> pixels; // one thread paints; kept so that no event allocates
    pixels.resize(
        std::max(pixels.size(), static_cast<std::size_t>(width) * static_cast<std::size_t>(strip * fold)));
    for (int top = shown.top(); top <= shown.bottom(); top += strip) {
        const int rows = std::min(strip, shown.bottom() + 1 - top);
        const lmk::Rect area{(shown.left() - border_) * fold, (top - border_) * fold, width, rows * fold};
        picture->Expand(area, factor * fold, pixels.data(), width);
        QImage image(reinterpret_cast<const uchar*>(pixels.data()), width, rows * fold, width * 4,
                     QImage::Format_RGB32);
        image.setDevicePixelRatio(fold);
        painter.drawImage(QPointF(shown.left(), top), image);
    }
}

MouseArgs MouseArgsOf(const QMouseEvent& event, int button) {
    MouseArgs args;
    args.Button = static_cast<std::int16_t>(button & 7);
    args.Shift = static_cast<std::int16_t>((event.modifiers() & Qt::ShiftModifier ? 1 : 0) |
                                           (event.modifiers() & Qt::ControlModifier ? 2 : 0) |
                                           (event.modifiers() & Qt::AltModifier ? 4 : 0));
    // Whole pixels, rounded down before anything flips or divides them.
    args.X = static_cast<float>(std::floor(event.position().x()));
    args.Y = static_cast<float>(std::floor(event.position().y()));
    return args;
}

MouseArgs BitPictureView::ArgsOf(const QMouseEvent& event, int button) const {
    MouseArgs args = MouseArgsOf(event, button);
    args.X -= static_cast<float>(border_);
    args.Y -= static_cast<float>(border_);
    return args;
}

void BitPictureView::mousePressEvent(QMouseEvent* event) {
    if (MouseDown) {
        MouseDown(ArgsOf(*event, event->button()));
    }
}

void BitPictureView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event); // two quick presses are two presses
}

void BitPictureView::mouseMoveEvent(QMouseEvent* event) {
    if (MouseMove) {
        MouseMove(ArgsOf(*event, static_cast<int>(event->buttons())));
    }
}

void BitPictureView::mouseReleaseEvent(QMouseEvent* event) {
    if (MouseUp) {
        MouseUp(ArgsOf(*event, event->button()));
    }
}

void PictureBox::PaintOver(QPainter& painter, const QRect& exposed) {
    if (Overlay) {
        Overlay(painter, exposed);
    }
}

} // namespace lumrake
