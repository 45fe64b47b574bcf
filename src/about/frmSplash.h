#pragma once

#include "controls/drawing_box.h"

namespace lumrake {

/// The picture of the start: a window of its own without a title, in the middle of the screen. It takes part
/// in nothing; Main shows it, calls Refresh, and destroys it when its time is over.
class frmSplash : public DrawingBox {
  public:
    frmSplash();

    /// Brings the shown window to the screen before it returns. Gives up after half a second when the window
    /// system does not show it; the work at the start then goes on without it.
    void Refresh();
};

} // namespace lumrake
