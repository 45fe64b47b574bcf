#include "shell/shell.h"
#include "shell/window/startup.h"

int main(int argc, char** argv) {
#if defined(LUMRAKE_SYSTEM)
    lumrake::KeepSettingsOfEachUser();
#endif
    return lumrake::RunProgram(argc, argv);
}
