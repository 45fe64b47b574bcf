#pragma once

#include "display/bit_picture.h"
#include "display/lmk.h"

#include <QColor>
#include <QWidget>

#include <cstdint>
#include <functional>

namespace lumrake {

/// A mouse event as the forms take it.
struct MouseArgs {
    std::int16_t Button = 0; ///< on a press or release the button that changed, on a move the mask of those
                             ///< held: 1 left, 2 right, 4 middle
    float X = 0;             ///< logical screen pixels from the widget's corner, negative or past its size
    float Y = 0;             ///< while a button is held outside
};

/// Buttons, as values of MouseArgs::Button.
inline constexpr std::int16_t kLeftButton = 1, kRightButton = 2;

using MouseHandler = std::function<void(const MouseArgs&)>;

/// Whether a press or release is of the left, right or middle button. A mouse may have more; they do nothing.
bool IsKnownButton(const QMouseEvent& event);

/// A mouse event with the button or mask `button`; its place in whole pixels, rounded down.
MouseArgs MouseArgsOf(const QMouseEvent& event, int button);

/// Shows a one-bit picture enlarged by a whole factor, painting only what is exposed: the enlarged picture
/// never exists in memory. Its own size is for the form to set; pixels beyond the picture take the box's
/// background.
class BitPictureView : public QWidget {
  public:
    explicit BitPictureView(QWidget* parent = nullptr);

    /// Room around the picture that a sunken frame is drawn in, in logical pixels; 0 at first. The frame shows
    /// that the keys go here.
    void SetBorder(int pixels);
    void SetBackground(const QColor& colour);
    /// Repaints these logical pixels: with a fractional device pixel ratio, every device pixel they touch.
    void UpdateArea(const QRegion& area);

    /// X and Y count from the picture's corner, inside the border. Every press that was told is followed by its
    /// release: one that went to a menu or dialog opened meanwhile is told before the next event.
    MouseHandler MouseDown, MouseMove, MouseUp;
    /// Draws over the picture, in the box's own pixels: the selection net, for one.
    std::function<void(QPainter&, const QRect& exposed)> Overlay;
    /// A press was told and its release was not.
    bool IsPressed() const { return pressed_ != Qt::NoButton; }

  protected:
    /// The picture to show and its factor in logical pixels; null shows the background alone.
    virtual const lmk::BitPicture* ShownPicture() const = 0;
    virtual int ShownFactor() const = 0;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    MouseArgs ArgsOf(const QMouseEvent& event, int button) const;
    /// Tells the release of every button that was pressed here and is not among those still held.
    void TellReleases(const QMouseEvent& event, Qt::MouseButtons held);
    bool HasWholeRatio() const;
    void PaintPicture(QPainter& painter, const QRect& exposed) const;
    /// A whole-number ratio goes into the factor: every device pixel is painted as it is.
    void PaintFolded(QPainter& painter, const QRect& shown) const;
    /// With a fractional ratio a device pixel takes the logical pixel under its centre, whatever is exposed.
    void PaintSampled(QPainter& painter, const QRect& shown) const;

    int border_ = 0;
    Qt::MouseButtons pressed_; ///< those whose release has not been told
    QColor background_{224, 224, 224};
};

/// The picture box that zxShowMem draws into: it owns the device context.
class PictureBox : public BitPictureView {
  public:
    using BitPictureView::BitPictureView;

    lmk::DeviceContext& hDC() { return context_; }
    const lmk::DeviceContext& hDC() const { return context_; }

  protected:
    const lmk::BitPicture* ShownPicture() const override { return &context_.Picture(); }
    int ShownFactor() const override { return context_.Factor(); }

  private:
    lmk::DeviceContext context_;
};

/// An image control that stretches its picture by a whole factor.
class ImageBox : public BitPictureView {
  public:
    using BitPictureView::BitPictureView;

    void SetPicture(const lmk::BitPicture& picture) { picture_ = picture; }
    void SetFactor(int factor) { factor_ = factor; }

  protected:
    const lmk::BitPicture* ShownPicture() const override { return &picture_; }
    int ShownFactor() const override { return factor_; }

  private:
    lmk::BitPicture picture_;
    int factor_ = 1;
};

} // namespace lumrake
