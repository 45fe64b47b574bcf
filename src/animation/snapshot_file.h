#pragma once

#include <QString>

#include <optional>

namespace lumrake {

/// The file that an animation's path stands for: found as it is spelled, or by the one name that differs only
/// in letter case. A relative path is looked for in the current directory and then beside the animation's own
/// file `sAnimFile` (empty for an animation without one). Blanks round the path do not count. Nothing when
/// there is no such file; a directory is none.
std::optional<QString> FindAnimationSnapshot(const QString& sSnapFile, const QString& sAnimFile);

} // namespace lumrake
