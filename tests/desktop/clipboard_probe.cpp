// A program of the tests that copies a text and ends, as the program itself does.
//
//   clipboard_probe copy TEXT     prints TEXT and hands it over; exit status 1 without a clipboard
//   clipboard_probe window TEXT   hands it over as a window does: with threads, by a second process
//   clipboard_probe has-owner     exit status 0 when the clipboard has an owner

#include "platform/clipboard_keeper.h"

#include <cstdio>
#include <future>
#include <string_view>
#include <thread>

#include <unistd.h>

namespace {

int copy(const char* text) {
    orbisgrid::ClipboardHandover handover = orbisgrid::ClipboardHandover::start(text);
    std::fputs(text, stdout);
    std::fflush(stdout);
    return handover.wait() ? 0 : 1;
}

int copyFromAWindow(const char* text) {
    std::promise<void> end;
    std::thread thread([&end] { end.get_future().wait(); });
    const bool isCopied = orbisgrid::startClipboardKeeper("/proc/self/exe", text);
    end.set_value();
    thread.join();
    return isCopied ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (orbisgrid::isClipboardKeeperRole())
        return orbisgrid::runClipboardKeeper();
    const std::string_view task = argc > 1 ? argv[1] : "";
    if (task == "copy" && argc == 3)
        ::_exit(copy(argv[2]));
    if (task == "window" && argc == 3)
        return copyFromAWindow(argv[2]);
    if (task == "has-owner")
        return orbisgrid::clipboardHasOwner() ? 0 : 1;
    return 2;
}
