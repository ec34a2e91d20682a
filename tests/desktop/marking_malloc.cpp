// An allocator that is put before the C library's, as some systems and tools do. It marks what it
// gives and ends a program that hands it anything else. A block of its own that is handed to the C
// library ends the program there.

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

extern "C" {
void* __libc_malloc(std::size_t size); // NOLINT(bugprone-reserved-identifier): the C library's
void __libc_free(void* start);         // NOLINT(bugprone-reserved-identifier)
}

namespace {

struct Mark {
    std::uint64_t value;
    std::size_t size;
    void* start;
    void* unused; // the block behind it stays aligned
};

constexpr std::uint64_t ours = 0x4F52424947524944;

Mark* markOf(void* block) {
    return static_cast<Mark*>(block) - 1;
}

void* give(std::size_t size, std::size_t alignment) {
    const std::size_t step = std::max(alignment, sizeof(Mark));
    void* start = __libc_malloc(size + sizeof(Mark) + step);
    if (start == nullptr)
        return nullptr;
    const std::size_t first = reinterpret_cast<std::uintptr_t>(start) + sizeof(Mark);
    const std::size_t offset = (step - first % step) % step + sizeof(Mark);
    void* block = static_cast<char*>(start) + offset;
    *markOf(block) = {ours, size, start, nullptr};
    return block;
}

/// A tool does so lest the programs that this one starts be watched, too.
[[gnu::constructor]] void leaveNoTrace() {
    ::unsetenv("LD_PRELOAD");
}

} // namespace

extern "C" {

[[gnu::visibility("default")]] void* malloc(std::size_t size) {
    return give(size, 1);
}

[[gnu::visibility("default")]] void free(void* block) {
    if (block == nullptr)
        return;
    if (markOf(block)->value != ours)
        std::abort();
    markOf(block)->value = 0;
    __libc_free(markOf(block)->start);
}

[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size) {
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(count, size, &bytes))
        return nullptr;
    void* block = give(bytes, 1);
    return block == nullptr ? nullptr : std::memset(block, 0, bytes);
}

[[gnu::visibility("default")]] void* realloc(void* block, std::size_t size) {
    void* larger = give(size, 1);
    if (block != nullptr && larger != nullptr) {
        std::memcpy(larger, block, std::min(size, markOf(block)->size));
        free(block);
    }
    return larger;
}

[[gnu::visibility("default")]] void* memalign(std::size_t alignment, std::size_t size) {
    return give(size, alignment);
}

[[gnu::visibility("default")]] void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return give(size, alignment);
}

[[gnu::visibility("default")]] int posix_memalign(void** block, std::size_t alignment,
                                                  std::size_t size) {
    *block = give(size, alignment);
    return *block == nullptr ? ENOMEM : 0;
}
}
