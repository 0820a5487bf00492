// velto-cli: reads and writes project files without a display, through the same core code as the
// program.
#include "CliCommands.h"

#include <iostream>

int main(int argc, char** argv) {
    return velto::RunCommandLine({argv + 1, argv + argc}, std::cout, std::cerr);
}
