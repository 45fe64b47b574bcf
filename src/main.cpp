#include "shell/window/startup.h"

int main(int argc, char** argv) {
    return lumrake::RunProgram(argc, argv);
}
