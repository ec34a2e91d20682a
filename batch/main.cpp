#include "batch/program.h"

#include <cstddef>
#include <cstdlib>
#include <span>

int main(int argc, char** argv) {
    const int status = orbisgrid::runProgram({argv, static_cast<std::size_t>(argc)});
    // Nothing is left to be written; what memory there is goes with the process.
    std::_Exit(status);
}
