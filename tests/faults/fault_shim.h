#pragma once

#include <string>

namespace lumrake::testing {

/// A disk that fails on demand. The program of tests brings its own open, read, write, fsync, rename, stat, fchmod and
/// the like; they pass everything on to the system, but while a plan is armed they count the calls that touch files
/// below one directory and let one of them fail.
struct FaultPlan {
    std::string directory;   ///< only files below it are counted and harmed
    int failAt = 0;          ///< the number of the call that fails, from 1; 0 lets all pass
    int error = 0;           ///< errno of the failing call
    bool shortWrite = false; ///< a failing write takes half its bytes first, as a disk does that runs full
    int interruptEvery = 0;  ///< every so many reads, writes and syncs one is refused with EINTR; 0 never
    bool mounted = false;    ///< no file takes the place of another, as if each were a mount of its own
};

void ArmFaults(const FaultPlan& plan);
/// Ends the plan. Says how many calls were counted; a plan whose `failAt` is above that never struck.
int DisarmFaults();
/// The name of the call that the last plan let fail; "none" when none was, "directory" when
/// one was to be brought to the disk.
std::string StruckCall();

} // namespace lumrake::testing
