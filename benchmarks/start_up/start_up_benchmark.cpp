/// How long programs take from exec to their first mapped and their first drawn window, and how
/// much memory they use at most; or, for a command, from exec to its end. All commands take turns,
/// so that whatever else the machine does hits each of them alike; medians are printed, and each as
/// a ratio of the first command's. Commands are started without a copy of this process, which would
/// be a tenth of what the shortest of them takes.
///
///     start_up_benchmark window|command <rounds> <command> ...
///
/// Needs DISPLAY: an X server without other windows (scripts/benchmark_start_up.sh starts one).
#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

struct Sample {
    double mapped = 0; ///< ms from exec
    double drawn = 0;  ///< ms from exec
    double ended = 0;  ///< ms from exec
    double memory = 0; ///< peak resident set, MB
};

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "start_up_benchmark: %s\n", what);
    std::exit(2);
}

/// Sees every top-level window that is mapped and every one that is drawn into.
class Screen {
public:
    Screen()
        : m_connection(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(m_connection) != 0)
            fail("no X server");
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
        const auto* damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        if (damage == nullptr || damage->present == 0)
            fail("the X server has no DAMAGE");
        m_damageEvent = damage->first_event;
        std::free(xcb_damage_query_version_reply(
            m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
        xcb_flush(m_connection);
    }

    ~Screen() { xcb_disconnect(m_connection); }

    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Waits until a window of some size is mapped and drawn into.
    void waitForWindow(Clock::time_point start, Sample& sample) {
        xcb_window_t window = XCB_WINDOW_NONE;
        while (xcb_generic_event_t* event = xcb_wait_for_event(m_connection)) {
            const int type = event->response_type & 0x7F;
            if (type == XCB_CREATE_NOTIFY)
                watch(reinterpret_cast<xcb_create_notify_event_t*>(event)->window);
            if (type == XCB_MAP_NOTIFY && window == XCB_WINDOW_NONE) {
                const auto mapped = reinterpret_cast<xcb_map_notify_event_t*>(event)->window;
                if (isLarge(mapped)) {
                    window = mapped;
                    sample.mapped = millisecondsSince(start);
                }
            }
            const bool isDrawn =
                type == m_damageEvent &&
                reinterpret_cast<xcb_damage_notify_event_t*>(event)->drawable == window;
            std::free(event);
            if (isDrawn) {
                sample.drawn = millisecondsSince(start);
                return;
            }
        }
        fail("the X server has ended");
    }

    void forgetEvents() {
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection))
            std::free(event);
    }

private:
    void watch(xcb_window_t window) {
        xcb_damage_create(m_connection, xcb_generate_id(m_connection), window,
                          XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(m_connection);
    }

    bool isLarge(xcb_window_t window) {
        auto* geometry =
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr);
        const bool large = geometry != nullptr && geometry->width > 100;
        std::free(geometry);
        return large;
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    int m_damageEvent = 0;
};

/// Standard output and standard error of what is started go nowhere.
class Silence {
public:
    Silence() {
        ::posix_spawn_file_actions_init(&m_actions);
        ::posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&m_actions, STDOUT_FILENO, STDERR_FILENO);
    }

    ~Silence() { ::posix_spawn_file_actions_destroy(&m_actions); }

    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

    const posix_spawn_file_actions_t* get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

/// Without a shell, whose own start would be measured too: a command's parts stand between blanks.
pid_t start(const std::string& command) {
    std::istringstream stream(command);
    std::vector<std::string> parts{std::istream_iterator<std::string>(stream), {}};
    std::vector<char*> arguments;
    for (std::string& part : parts)
        arguments.push_back(part.data());
    arguments.push_back(nullptr);
    const Silence silence;
    pid_t child = -1;
    if (::posix_spawn(&child, arguments.front(), silence.get(), nullptr, arguments.data(),
                      environ) != 0)
        fail(("cannot start " + command).c_str());
    return child;
}

void waitForEnd(pid_t child, Sample& sample) {
    rusage usage{};
    int status = 0;
    if (::wait4(child, &status, 0, &usage) != child)
        fail("cannot wait");
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0)
        fail("a command failed");
    sample.memory = static_cast<double>(usage.ru_maxrss) / 1024;
}

Sample runWindow(Screen& screen, const std::string& command) {
    Sample sample;
    screen.forgetEvents();
    const auto begin = Clock::now();
    const pid_t child = start(command);
    screen.waitForWindow(begin, sample);
    ::usleep(100000); // what a window still does after it is drawn counts for its memory
    ::kill(child, SIGTERM);
    waitForEnd(child, sample);
    return sample;
}

Sample runCommand(const std::string& command) {
    Sample sample;
    const auto begin = Clock::now();
    waitForEnd(start(command), sample);
    sample.ended = millisecondsSince(begin);
    return sample;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

using Member = double Sample::*;

void print(const char* title, const std::vector<std::vector<Sample>>& samples, Member member) {
    std::printf("%-26s", title);
    double first = 0;
    for (const auto& runs : samples) {
        std::vector<double> values;
        for (const Sample& sample : runs)
            values.push_back(sample.*member);
        const double value = median(values);
        first = first == 0 ? value : first;
        std::printf("  %8.2f (%.3f)", value, value / first);
    }
    std::printf("\n");
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4)
        fail("window|command <rounds> <command> ...");
    const bool isWindow = std::strcmp(argv[1], "window") == 0;
    const int rounds = std::atoi(argv[2]);
    const std::vector<std::string> commands(argv + 3, argv + argc);
    std::vector<std::vector<Sample>> samples(commands.size());
    Screen screen;
    for (int round = -3; round < rounds; ++round) { // three rounds to warm up
        for (std::size_t turn = 0; turn < commands.size(); ++turn) {
            // Another one begins each round: what a command leaves behind hits all of them alike.
            const std::size_t i = (turn + static_cast<std::size_t>(round + 3)) % commands.size();
            ::usleep(20000); // and the server has time to tidy up
            const Sample sample =
                isWindow ? runWindow(screen, commands[i]) : runCommand(commands[i]);
            if (round >= 0)
                samples[i].push_back(sample);
        }
    }
    std::printf("%-26s", "");
    for (const std::string& command : commands)
        std::printf("  %s;", command.c_str());
    std::printf("\n");
    if (isWindow) {
        print("exec to mapped (ms)", samples, &Sample::mapped);
        print("exec to drawn (ms)", samples, &Sample::drawn);
        print("peak memory (MB)", samples, &Sample::memory);
    } else { // the system counts no peak below that of the process that started it
        print("exec to end (ms)", samples, &Sample::ended);
    }
    return 0;
}
