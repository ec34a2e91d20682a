/// The yardstick of a job: connects to the X server and ends.
///
///     bare_connection         by itself
///     bare_connection child   in a child that it waits for, as a job's clipboard needs one
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

int connect() {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isConnected ? 0 : 1;
}

} // namespace

int main(int argc, char** /*argv*/) {
    if (argc == 1)
        return connect();
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(connect());
    int status = 1;
    return ::waitpid(child, &status, 0) == child && status == 0 ? 0 : 1;
}
