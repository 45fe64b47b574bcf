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
///                  Paste: Begin
///     not placing --------------> placing ----+  moves; zoom scales block and frame
///         ^                        |   ^      |  Paste again: keeps the tool saved first
///         |                        |   +------+  Copy in another window: the new block hangs on the mouse
///         +------------------------+
///
/// The ways out of placing:
///     the tool comes back (End)               left press on the block: drops it
///                                             the window closes
///                                             a Copy elsewhere leaves the clipboard empty
///     the tool goes on to another window      Paste there: Begin takes over the saved tool
///     another tool is in force (LetGo)        tool button: the block goes with the next move over the picture, or with
///                                             a press on it, which drops nothing
///
/// While another child is active the block stays where it is and goes on following once the mouse is back.
template <class Window> struct Placing {
    static constexpr std::int16_t kPlacingTool = 1;

    Window* window = nullptr;    ///< where the block hangs; null when nowhere
    std::int16_t iSavedTool = 0; ///< the tool to go back to; 0 when none is kept

    /// A block hangs in `where` from now on.
    void Begin(Window* where, std::int16_t& iTool) {
        iSavedTool = iTool == kPlacingTool ? iSavedTool : iTool;
        iTool = kPlacingTool;
        window = where;
    }
    /// The block is gone, and the tool that is in force stays.
    void LetGo() { *this = {}; }
    /// The block is gone, and the tool of before comes back, unless another has been chosen meanwhile.
    void End(std::int16_t& iTool) {
        if (iTool == kPlacingTool) {
            iTool = iSavedTool;
        }
        LetGo();
    }

    /// With this tool in force.
    bool IsSound(std::int16_t iTool) const {
        return (window != nullptr) == (iSavedTool > kPlacingTool) &&
               (iTool != kPlacingTool || window != nullptr);
    }
};

} // namespace lumrake
