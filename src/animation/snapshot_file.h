#pragma once

#include <QString>

#include <optional>

namespace lumrake {

/// The file that an animation's path stands for: found as it is spelled, or by the one name that differs only
/// in letter case. A relative path is looked for beside the animation's own file `sAnimFile` (empty for an
/// animation without one) and then in the current directory. Blanks round the path do not count. Nothing when
/// there is no such file; a directory is none.
std::optional<QString> FindAnimationSnapshot(const QString& sSnapFile, const QString& sAnimFile);

/// What to propose for a path that leads nowhere: the file of that name beside the animation's own file, with its
/// directory where that fits the record, else by its name alone. Empty when there is none.
QString ProposedSnapshot(const QString& sSnapFile, const QString& sAnimFile);

} // namespace lumrake
