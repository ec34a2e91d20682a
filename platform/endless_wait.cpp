#include "platform/endless_wait.h"

#include <unistd.h>

namespace orbisgrid {

void waitEndlessly() {
    for (;;)
        ::pause();
}

} // namespace orbisgrid
