/// A disk that takes its time: loaded before the program, each sync lasts 300 ms longer.
#include <sys/syscall.h>
#include <unistd.h>

extern "C" int fsync(int handle) {
    usleep(300'000);
    return static_cast<int>(syscall(SYS_fsync, handle));
}
