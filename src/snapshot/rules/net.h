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

/// The rectangle over the same picture pixels after the factor has changed. All four numbers are whole
/// picture pixels as a rule; else they are rounded down.
NetRect ScaledNet(const NetRect& net, std::int32_t iOldFactor, std::int32_t iNewFactor);

/// The frame of a block that is being placed: 1 screen pixel outside it on every side.
NetRect FrameOf(const NetRect& block);

/// The border of a net, 1 screen pixel thick and inside the rectangle: top, bottom, left, right. They don't
/// overlap, so that inverting each of them inverts every pixel of the border once. A net without width or
/// height is drawn as a line. Lines that a thin net has no room for are empty.
std::array<NetRect, 4> BorderOf(const NetRect& net);

/// The drag that shapes a net: the corner where it began and its signed size from there, in screen pixels.
struct NetDrag {
    std::int32_t iNetX = 0, iNetY = 0, iNetWidth = 0, iNetHeight = 0;

    NetRect Place() const;
};

/// What lies on the picture: the selection net, or the frame of a block that is being placed. All places are screen
/// pixels of the picture.
///
///               Started                    Ended
///     hidden ----------> dragged ----------------------> lies
///       ^                 |  ^  ^ Dragged                 |  |
///       |                 +--+  +-------- Started --------+  |
///       +---- Hidden ----------------------------------------+
///
/// Around makes a frame of it, out of every state; Hidden or Started end that. Its numbers stay while it is hidden.
/// Each gives the net that follows. No size is ever negative.
struct Net : NetRect, NetDrag {
    bool Visible = false;
    bool Dotted = false; ///< solid while it is dragged, dotted once it rests
    bool Frame = false;  ///< the frame of a block: no net for the commands

    /// A press leaves a net of one screen pixel, whatever lay there before.
    static Net Started(double X, double Y, std::int32_t iZoomFactor);
    Net Dragged(double X, double Y, std::int32_t iZoomFactor) const;
    Net Ended() const { return {*this, *this, Visible, true, Frame}; }
    Net Hidden() const { return {*this, *this, false, Dotted, Frame}; }
    Net Around(const NetRect& block) const { return {FrameOf(block), *this, true, Dotted, true}; }
    Net At(const NetRect& place) const { return {place, *this, Visible, Dotted, Frame}; }

    /// A net lies on which Cut, Copy, Delete and the export can act.
    bool IsSelection() const { return Visible && !Frame && Width > 1; }
    bool IsSound() const { return Width >= 0 && Height >= 0; }
};

} // namespace lumrake
