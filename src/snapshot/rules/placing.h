#pragma once

#include "snapshot/rules/net.h"

#include <cstdint>

namespace lumrake {

/// A drag of the Pan tool: the point of the picture that was pressed stays under the mouse. Places are screen pixels of
/// the picture, which moves under the mouse.
///
///     at rest --Start--> panning --End--> at rest      MoveTo while panning; a second Start does not move the anchor
struct Pan {
    bool bPanning = false;
    float sngPanTop = 0, sngPanLeft = 0;      ///< where the picture goes in its container
    float sngPanStartY = 0, sngPanStartX = 0; ///< the point that was pressed

    void Start(float X, float Y) {
        if (!bPanning) {
            sngPanStartX = X;
            sngPanStartY = Y;
            bPanning = true;
        }
    }
    /// `left` and `top` are where the picture is.
    void MoveTo(float X, float Y, int left, int top) {
        sngPanTop = Y - sngPanStartY + static_cast<float>(top);
        sngPanLeft = X - sngPanStartX + static_cast<float>(left);
    }
    void End() { bPanning = false; }
};

/// The placing of a pasted block: one for the whole program, for the tool is one for all windows. While a block hangs on
/// the mouse the tool is `kPlacingTool`.
///
///   state     window   tool      block in that window   its net
///   none      null     another   hidden                 whatever lies there
///   hanging   one      placing   follows the mouse      the frame of the block
///   left      one      another   lies still             the frame, or hidden by the tool's button
///
///   from      by                                                                 to       tool
///   any       Paste (Begin); the block before goes                               hanging  placing, the old one is kept
///   hanging   moves (MoveTo); zoom, a Copy anywhere (block)                      hanging
///   hanging   a left press on the block drops it, the window closes, a Copy
///             leaves the clipboard empty (End)                                   none     the one that was kept
///   hanging   a button of the toolbar                                            left     the button's
///   left      the next move over the picture without a button, a press on the
///             block or one that begins a net, the window closes, a Copy (End)    none
///
/// While another child is active the block stays where it is and goes on following once the mouse is back.
template <class Window> struct Placing {
    static constexpr std::int16_t kPlacingTool = 1;

    std::int16_t& iTool;         ///< in force
    Window* window = nullptr;    ///< where the block hangs; null when nowhere
    std::int16_t iSavedTool = 0; ///< the tool to go back to; 0 when none is kept
    NetRect block{};             ///< the screen pixels of the picture that it covers

    bool IsHanging() const { return window != nullptr && iTool == kPlacingTool; }
    /// A block hangs in `where` from now on.
    void Begin(Window* where) {
        iSavedTool = IsHanging() ? iSavedTool : iTool;
        iTool = kPlacingTool;
        window = where;
    }
    /// Hangs the block centred on the mouse, on a corner of a picture pixel.
    void MoveTo(double X, double Y, std::int32_t iZoomFactor) {
        block.Left = SnapToPixel(X - block.Width / 2.0, iZoomFactor);
        block.Top = SnapToPixel(Y - block.Height / 2.0, iZoomFactor);
    }
    /// The block is gone, and the tool of before comes back, unless another has been chosen meanwhile.
    void End() {
        iTool = IsHanging() ? iSavedTool : iTool;
        window = nullptr;
        iSavedTool = 0;
    }

    bool IsSound() const {
        const bool isOut = window == nullptr && iSavedTool == 0 && iTool > kPlacingTool;
        const bool isIn =
            window != nullptr && iSavedTool > kPlacingTool && block.Width > 0 && block.Height > 0;
        return isOut || isIn;
    }
};

} // namespace lumrake
