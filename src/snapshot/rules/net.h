#pragma once

#include <array>
#include <cstdint>

namespace lumrake {

/// A rectangle of screen pixels, counted from the top left corner of the picture. It may reach past the
/// picture on any side. Width and Height are never negative.
struct NetRect {
    std::int32_t Left = 0, Top = 0, Width = 0, Height = 0;

    bool operator==(const NetRect&) const = default;
};

/// The left or upper edge of the picture pixel under a screen position: floor(at / iZoomFactor) *
/// iZoomFactor. Taken of a distance it gives the whole picture pixels in it: -1 at factor 4 gives -4.
std::int32_t SnapToPixel(double at, std::int32_t iZoomFactor);

/// The rectangle of a drag: one corner and the signed size from there, negative to the left and upwards.
NetRect NetFromDrag(std::int32_t iNetX, std::int32_t iNetY, std::int32_t iNetWidth, std::int32_t iNetHeight);

/// The rectangle over the same picture pixels after the factor has changed. All four numbers are whole
/// picture pixels as a rule; else they are rounded down.
NetRect ScaledNet(const NetRect& net, std::int32_t iOldFactor, std::int32_t iNewFactor);

/// Left (or Top) of a block of this size that hangs centred on the mouse, on a corner of a picture pixel.
std::int32_t HungAt(double mouse, std::int32_t size, std::int32_t iZoomFactor);

/// The frame of a block that is being placed: 1 screen pixel outside it on every side.
NetRect FrameOf(const NetRect& block);

/// The border of a net, 1 screen pixel thick and inside the rectangle: top, bottom, left, right. They don't
/// overlap, so that inverting each of them inverts every pixel of the border once. A net without width or
/// height is drawn as a line. Lines that a thin net has no room for are empty.
std::array<NetRect, 4> BorderOf(const NetRect& net);

/// What lies on the picture: the selection net, or the frame of a block that is being placed. All places are screen
/// pixels of the picture.
///
///               Start                      End
///     hidden ----------> dragged ----------------------> lies
///       ^                 |  ^  ^ DragTo                  |  |
///       |                 +--+  +-------- Start ----------+  |
///       +---- Hide ------------------------------------------+
///
/// FrameBlock makes a frame of it, out of every state; Hide or Start end that. Its numbers stay while it is hidden.
/// No size is ever negative.
class Net : public NetRect {
  public:
    bool Visible = false;
    bool Dotted = false;                        ///< solid while it is dragged, dotted once it rests
    bool Frame = false;                         ///< the frame of a block: no net for the commands
    std::int32_t iNetX = 0, iNetY = 0;          ///< corner where the drag began
    std::int32_t iNetWidth = 0, iNetHeight = 0; ///< signed size of the drag from that corner

    Net() : NetRect{40, 16, 57, 49} {}

    /// A press leaves a net of one screen pixel, whatever lay there before.
    void Start(double X, double Y, std::int32_t iZoomFactor);
    void DragTo(double X, double Y, std::int32_t iZoomFactor);
    /// Brings the rectangle into line with the drag.
    void SetPosition() { Move(NetFromDrag(iNetX, iNetY, iNetWidth, iNetHeight)); }
    void End() { Dotted = true; }
    void Hide() { Visible = false; }
    void FrameBlock(const NetRect& block);
    void Move(const NetRect& place) { static_cast<NetRect&>(*this) = place; }

    /// A net lies on which Cut, Copy, Delete and the export can act.
    bool IsSelection() const { return Visible && !Frame && Width > 1; }
    bool IsSound() const { return Width >= 0 && Height >= 0; }
};

} // namespace lumrake
