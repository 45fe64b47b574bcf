#pragma once

#include <QString>

namespace lumrake {

/// The name of a new file that will take the place of another: that one's, cut where it has to be, a dot and six
/// letters. It is noted (disk/recovery_run.h) while this lives, so that the next start finds what a killed run left.
/// Where it cannot be noted, it is all the same.
class TemporaryFile {
  public:
    explicit TemporaryFile(const QString& path);
    /// Removes the file, if it was made and has not been renamed.
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const QString& Path() const { return path_; }
    void SetMade() { made_ = true; }

  private:
    QString path_, note_;
    bool made_ = false;
};

/// Removes the temporary files that dead runs noted and left; of what bears such a name only a user's own regular file.
/// Called behind AdoptDeadRuns, before this run saves anything.
void RemoveLeftOvers();

} // namespace lumrake
