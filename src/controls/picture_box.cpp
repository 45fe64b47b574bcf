#include "controls/picture_box.h"

#include "controls/spoken.h"
#include "controls/whole_pixels.h"

#include <QImage>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPaintEvent>
#include <QPainter>
#include <QRegion>
#include <QTransform>

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

/// Room for so many pixels. One thread paints; it is kept so that no event allocates.
std::uint32_t* Pixels(int width, int rows) {
    static std::vector<std::uint32_t> pixels;
    pixels.resize(std::max(pixels.size(), static_cast<std::size_t>(width) * static_cast<std::size_t>(rows)));
    return pixels.data();
}

} // namespace

BitPictureView::BitPictureView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent); // every exposed pixel is painted, nothing needs clearing before
    setMouseTracking(true);
    SetSpoken(this, {.role = QAccessible::Graphic});
}

void BitPictureView::SetBorder(int pixels) {
    border_ = pixels;
    update();
}

void BitPictureView::SetBackground(const QColor& colour) {
    background_ = colour;
    update();
}

void BitPictureView::UpdateArea(const QRegion& area) {
    if (HasWholeRatio()) {
        update(area);
        return;
    }
    QRegion grown;
    for (const QRect& part : area) {
        grown += part.adjusted(-1, -1, 1, 1);
    }
    update(grown);
}

bool BitPictureView::HasWholeRatio() const {
    const qreal ratio = devicePixelRatioF();
    return ratio == std::floor(ratio);
}

void BitPictureView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const auto paint = [&](const QRect& exposed) {
        PaintPicture(painter, exposed);
        if (Overlay) {
            Overlay(painter, exposed);
        }
    };
    const QRect inner = rect().adjusted(border_, border_, -border_, -border_);
    if (HasWholeRatio()) {
        for (const QRect& exposed : event->region()) {
            painter.setClipRect(exposed & inner);
            paint(exposed & inner);
        }
    } else {
        // The edges of what is exposed lie inside device pixels, and clips and fills round them differently.
        // So both paintings reach over them, and the toolkit's own clip alone cuts them off.
        paint(event->rect().adjusted(-1, -1, 1, 1) & inner);
    }
    if (border_ > 0) {
        painter.setClipping(false);
        if (hasFocus()) {
            FillFrame(painter, rect(), border_, palette().highlight());
        } else {
            FillFrame(painter, rect(), border_, palette().dark(), palette().light());
        }
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
    if (HasWholeRatio()) {
        PaintFolded(painter, shown);
    } else {
        PaintSampled(painter, shown);
    }
}

void BitPictureView::PaintFolded(QPainter& painter, const QRect& shown) const {
    const int fold = static_cast<int>(devicePixelRatioF());
    const int width = shown.width() * fold;
    QPoint offset; // from the box's device pixels to the image's
    if (QImage* image = PaintedImage(painter, fold, offset)) {
        const QRect target = QRect(shown.topLeft() * fold + offset, shown.size() * fold) & image->rect();
        if (!target.isEmpty()) {
            const QPoint from = target.topLeft() - offset;
            auto* first = reinterpret_cast<std::uint32_t*>(image->scanLine(target.top())) + target.left();
            ShownPicture()->Expand(
                {from.x() - border_ * fold, from.y() - border_ * fold, target.width(), target.height()},
                ShownFactor() * fold, first, image->bytesPerLine() / 4);
        }
        return;
    }
    const int strip = std::max(1, kStripRows / fold);
    std::uint32_t* const pixels = Pixels(width, strip * fold);
    for (int top = shown.top(); top <= shown.bottom(); top += strip) {
        const int rows = std::min(strip, shown.bottom() + 1 - top);
        const lmk::Rect area{(shown.left() - border_) * fold, (top - border_) * fold, width, rows * fold};
        ShownPicture()->Expand(area, ShownFactor() * fold, pixels, width);
        QImage image(reinterpret_cast<const uchar*>(pixels), width, rows * fold, width * 4,
                     QImage::Format_RGB32);
        image.setDevicePixelRatio(fold);
        painter.drawImage(QPointF(shown.left(), top), image);
    }
}

void BitPictureView::PaintSampled(QPainter& painter, const QRect& shown) const {
    const QTransform toDevice = painter.deviceTransform();
    const QRect device = toDevice.mapRect(QRectF(shown)).toAlignedRect();
    std::vector<std::ptrdiff_t> columns; // of the exposed ones, for each device pixel across
    for (int x = device.left(); x <= device.right(); ++x) {
        const double column = std::floor((x + 0.5 - toDevice.dx()) / toDevice.m11());
        columns.push_back(std::clamp(static_cast<int>(column), shown.left(), shown.right()) - shown.left());
    }
    const auto rowAt = [&](int y) {
        const double row = std::floor((y + 0.5 - toDevice.dy()) / toDevice.m22());
        return std::clamp(static_cast<int>(row), shown.top(), shown.bottom());
    };
    std::uint32_t* const source = Pixels(shown.width() + device.width(), 1);
    std::uint32_t* const target = source + shown.width();
    const QImage image(reinterpret_cast<const uchar*>(target), device.width(), 1, device.width() * 4,
                       QImage::Format_RGB32);
    painter.save();
    painter.setWorldTransform(toDevice.inverted()); // counts in device pixels from here on
    for (int y = device.top(), last = -1; y <= device.bottom(); ++y) {
        const int row = rowAt(y);
        if (row != last) {
            ShownPicture()->Expand({shown.left() - border_, row - border_, shown.width(), 1}, ShownFactor(),
                                   source, shown.width());
            std::transform(columns.begin(), columns.end(), target,
                           [source](std::ptrdiff_t column) { return source[column]; });
            last = row;
        }
        painter.drawImage(QPoint(device.left(), y), image);
    }
    painter.restore();
}

namespace {

constexpr int kKnownButtons = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;

/// The toolkit hands a place on to a widget rounded to the nearest logical pixel: the right half of a pixel,
/// which has device pixels of its own on a dense screen, would count as the next one. The place in the window
/// still has the fraction.
QPointF ExactPosition(const QMouseEvent& event) {
    const QPointF place = event.position(), inWindow = event.scenePosition();
    const bool rounded = place == QPointF(place.toPoint());
    return rounded ? place + (inWindow - QPointF(inWindow.toPoint())) : place;
}

} // namespace

bool IsKnownButton(const QMouseEvent& event) {
    return (static_cast<int>(event.button()) & kKnownButtons) != 0;
}

MouseArgs MouseArgsOf(const QMouseEvent& event, int button) {
    MouseArgs args;
    args.Button = static_cast<std::int16_t>(button & kKnownButtons);
    const QPointF place = ExactPosition(event);
    // Whole pixels, rounded down before anything flips or divides them.
    args.X = static_cast<float>(std::floor(place.x()));
    args.Y = static_cast<float>(std::floor(place.y()));
    return args;
}

MouseArgs BitPictureView::ArgsOf(const QMouseEvent& event, int button) const {
    MouseArgs args = MouseArgsOf(event, button);
    args.X -= static_cast<float>(border_);
    args.Y -= static_cast<float>(border_);
    return args;
}

void BitPictureView::TellReleases(const QMouseEvent& event, Qt::MouseButtons held) {
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (pressed_.testFlag(button) && !held.testFlag(button)) {
            pressed_.setFlag(button, false);
            if (MouseUp) {
                MouseUp(ArgsOf(event, button));
            }
        }
    }
}

void BitPictureView::mousePressEvent(QMouseEvent* event) {
    if (!IsKnownButton(*event)) {
        return;
    }
    TellReleases(*event, event->buttons() & ~event->button());
    pressed_.setFlag(event->button());
    if (MouseDown) {
        MouseDown(ArgsOf(*event, event->button()));
    }
}

void BitPictureView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event); // two quick presses are two presses
}

void BitPictureView::mouseMoveEvent(QMouseEvent* event) {
    TellReleases(*event, event->buttons());
    if (MouseMove) {
        MouseMove(ArgsOf(*event, static_cast<int>(event->buttons())));
    }
}

void BitPictureView::mouseReleaseEvent(QMouseEvent* event) {
    if (!IsKnownButton(*event)) {
        return;
    }
    pressed_.setFlag(event->button()); // also when the press was not told
    TellReleases(*event, event->buttons() & ~event->button());
}

} // namespace lumrake
