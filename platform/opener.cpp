#include "platform/opener.h"

#include "platform/programs.h"

namespace orbisgrid {

void openAddress(const std::string& address) {
    // Not QDesktopServices: a QUrl writes %3a as %3A, %2d as "-" and escapes the blank in a mail's
    // subject, and then it is another address.
    startProgram(findProgram("xdg-open"), {address});
}

} // namespace orbisgrid
