#include "batch/program.h"

#include <cstddef>

int main(int argc, char** argv) {
    return orbisgrid::runProgram({argv, static_cast<std::size_t>(argc)});
}
