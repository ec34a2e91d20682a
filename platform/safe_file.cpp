#include "platform/safe_file.h"

#include "platform/file_descriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <ctime>
#include <memory>
#include <utility>

namespace orbisgrid {

namespace {

constexpr mode_t modeOfNewFiles = 0666; // less the umask

/// A path in two parts; `folder` ends with its separator and is empty for the current folder.
struct SplitPath {
    std::string folder;
    std::string name;
};

SplitPath split(const std::string& path) {
    const std::size_t slash = path.rfind('/') + 1; // npos + 1 is 0
    return {path.substr(0, slash), path.substr(slash)};
}

/// What `path` leads to when it is a link, else `path` itself. The file at the end need not exist.
/// Nothing when the links run in a circle.
std::optional<std::string> behindLinks(std::string path) {
    constexpr int mostLinks = 40; // the system's own limit
    for (int i = 0; i < mostLinks; ++i) {
        std::array<char, PATH_MAX> buffer{};
        const ssize_t length = ::readlink(path.c_str(), buffer.data(), buffer.size());
        if (length < 0)
            return path;
        const std::string target(buffer.data(), static_cast<std::size_t>(length));
        path = target.starts_with('/') ? std::string() : split(path).folder;
        path += target;
    }
    return std::nullopt;
}

std::optional<struct stat> statusOf(const std::string& path) {
    struct stat status = {};

    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return status;
}

/// The file that a path leads to, and what it is now: nothing where it is to be made.
struct Target {
    std::string path;
    std::optional<struct stat> old;
};

/// Nothing, with the reason in errno, where there may be no other content: links in a circle, a
/// file that may not be written, anything but a regular file.
std::optional<Target> targetOf(const std::string& path) {
    std::optional<std::string> target = behindLinks(path);
    if (!target) {
        errno = ELOOP;
        return std::nullopt;
    }
    const std::optional<struct stat> old = statusOf(*target);
    if (!old && errno != ENOENT)
        return std::nullopt; // there may be a file, and nobody knows its mode
    if (old && !S_ISREG(old->st_mode)) {
        errno = S_ISDIR(old->st_mode) ? EISDIR : EINVAL;
        return std::nullopt;
    }
    if (old && ::access(target->c_str(), W_OK) != 0)
        return std::nullopt;
    return Target{std::move(*target), old};
}

bool writeAll(const FileDescriptor& file, std::string_view bytes, off_t offset = 0) {
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file.get(), bytes.data(), bytes.size(), offset);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        offset += written;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// A disk that is full may say so only here. File systems that cannot flush are no failure.
bool isFlushed(const FileDescriptor& file, Flush flush) {
    return flush == Flush::later || ::fsync(file.get()) == 0 || errno == EINVAL || errno == EROFS;
}

// The second file -------------------------------------------------------------------------------

/// Second files are called .<name>.saving-<process>-<number>, hidden and never a name that a person
/// or an editor would give to a copy.
std::string secondFilePrefix(const std::string& name) {
    return "." + name + ".saving-";
}

bool isSecondFile(std::string_view entry, std::string_view prefix) {
    if (!entry.starts_with(prefix))
        return false;
    entry.remove_prefix(prefix.size());
    return !entry.empty() && entry.find_first_not_of("0123456789-") == std::string_view::npos;
}

/// Where a descriptor's file can be reached though it has no name.
std::string pathOf(const FileDescriptor& file) {
    return "/proc/self/fd/" + std::to_string(file.get());
}

/// When a second file gets its name. One that has none is gone with its process, but not every file
/// system knows such files.
enum class Naming { atOnce, atTheEnd };

/// A file that is gone with this object unless it was put in place.
class SecondFile {
public:
    SecondFile(const SplitPath& target, Naming naming)
        : m_begin(target.folder + secondFilePrefix(target.name) + std::to_string(::getpid()) +
                  "-") {
        if (naming == Naming::atTheEnd && openNameless(target.folder))
            return;
        takeFreeName([&](const char* path) {
            m_file = FileDescriptor(
                ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, modeOfNewFiles));
            return bool(m_file);
        });
    }

    SecondFile(const SecondFile&) = delete;
    SecondFile& operator=(const SecondFile&) = delete;
    SecondFile(SecondFile&&) = delete;
    SecondFile& operator=(SecondFile&&) = delete;

    ~SecondFile() {
        if (m_file && !m_path.empty())
            ::unlink(m_path.c_str());
    }

    explicit operator bool() const { return bool(m_file); }

    bool fill(std::string_view bytes, const std::optional<struct stat>& old, Flush flush) {
        return takeOver(old) && append(bytes) && isFlushed(m_file, flush);
    }

    bool append(std::string_view bytes) {
        if (!writeAll(m_file, bytes, m_size))
            return false;
        m_size += static_cast<off_t>(bytes.size());
        return true;
    }

    bool flush() const { return isFlushed(m_file, Flush::beforeReturning); }

    bool putInPlace(const std::string& target) {
        if (m_path.empty() && !takeName())
            return false;
        if (::rename(m_path.c_str(), target.c_str()) != 0)
            return false;
        m_file.close();
        return true;
    }

    /// Owner and group are taken over as far as the system allows it, the mode always. In this
    /// order: a change of owner drops bits of the mode.
    bool takeOver(const std::optional<struct stat>& old) {
        if (!old)
            return true;
        const auto ignore = [](int) {};
        ignore(::fchown(m_file.get(), static_cast<uid_t>(-1), old->st_gid));
        ignore(::fchown(m_file.get(), old->st_uid, static_cast<gid_t>(-1)));
        return ::fchmod(m_file.get(), old->st_mode & 07777U) == 0;
    }

private:
    bool openNameless(const std::string& folder) {
        m_file = FileDescriptor(::open(folder.empty() ? "." : folder.c_str(),
                                       O_WRONLY | O_TMPFILE | O_CLOEXEC, modeOfNewFiles));
        if (m_file && ::access(pathOf(m_file).c_str(), F_OK) != 0)
            m_file.close(); // it would never get a name
        return bool(m_file);
    }

    bool takeName() {
        return takeFreeName([&](const char* path) {
            return ::linkat(AT_FDCWD, pathOf(m_file).c_str(), AT_FDCWD, path, AT_SYMLINK_FOLLOW) ==
                   0;
        });
    }

    /// Names are taken only by leftovers of an earlier process of the same number.
    template <typename Make>
    bool takeFreeName(Make make) {
        for (int number = 0; number < 100; ++number) {
            m_path = m_begin + std::to_string(number);
            if (make(m_path.c_str()))
                return true;
            if (errno != EEXIST)
                break;
        }
        m_path.clear();
        return false;
    }

    std::string m_begin; ///< of its name, with the folder
    std::string m_path;  ///< empty while it has no name
    FileDescriptor m_file;
    off_t m_size = 0;
};

enum class Outcome { saved, failed, noSecondFile };

/// No second file here, though the file itself may well be writable: folder without rights, name at
/// its longest, a file that is a mount point.
bool forbidsSecondFile(int error) {
    constexpr std::array errors{EACCES, EPERM, EROFS, ENAMETOOLONG, EBUSY, EXDEV};
    return std::find(errors.begin(), errors.end(), error) != errors.end();
}

/// Makes the rename itself survive a loss of power. A failure costs nothing but that.
void flushFolder(const std::string& folder) {
    const FileDescriptor descriptor(
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor)
        ::fsync(descriptor.get());
}

Outcome replaceFile(const std::string& target, const std::optional<struct stat>& old,
                    std::string_view bytes, Flush flush) {
    const SplitPath path = split(target);
    SecondFile second(path, Naming::atOnce);
    if (!second)
        return forbidsSecondFile(errno) ? Outcome::noSecondFile : Outcome::failed;
    if (!second.fill(bytes, old, flush))
        return Outcome::failed;
    if (!second.putInPlace(target))
        return forbidsSecondFile(errno) ? Outcome::noSecondFile : Outcome::failed;
    if (flush == Flush::beforeReturning)
        flushFolder(path.folder);
    return Outcome::saved;
}

void removeLeftovers(const SplitPath& target) {
    const std::string prefix = secondFilePrefix(target.name);
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(
        ::opendir(target.folder.empty() ? "." : target.folder.c_str()), ::closedir);
    if (!folder)
        return;
    const std::time_t oldest = std::time(nullptr) - leftoverAgeSeconds;
    while (const dirent* entry = ::readdir(folder.get())) {
        const std::string_view name(static_cast<const char*>(entry->d_name));
        if (!isSecondFile(name, prefix))
            continue;
        const std::string path = target.folder + std::string(name);

        struct stat status = {};

        if (::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
            status.st_mtime < oldest)
            ::unlink(path.c_str());
    }
}

// Writing directly ------------------------------------------------------------------------------

/// Reserves room for `size` bytes without a visible change: a kill after it has done no harm.
bool reserve(const FileDescriptor& file, std::size_t oldSize, std::size_t size) {
    if (size <= oldSize)
        return true;
    const auto wanted = static_cast<off_t>(size);
    if (::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, wanted) == 0)
        return true;
    // File systems that cannot reserve get zeros behind the old content instead.
    if (errno == EOPNOTSUPP && ::posix_fallocate(file.get(), 0, wanted) == 0)
        return true;
    return false;
}

bool overwrite(const FileDescriptor& file, std::string_view bytes, Flush flush) {
    return writeAll(file, bytes) &&
           ::ftruncate(file.get(), static_cast<off_t>(bytes.size())) == 0 && isFlushed(file, flush);
}

bool writeDirectly(const std::string& target, std::string_view bytes, Flush flush) {
    const FileDescriptor file(::open(target.c_str(), O_RDWR | O_CLOEXEC));
    if (!file)
        return false;
    const std::optional<std::string> old = readToEnd(file);
    if (!old)
        return false;
    if (reserve(file, old->size(), bytes.size()) && overwrite(file, bytes, flush))
        return true;
    overwrite(file, *old, flush); // its own room is still there
    return false;
}

} // namespace

std::optional<std::string> readFile(const std::string& path) {
    // Without O_NONBLOCK a pipe in the file's place would wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));

    struct stat status = {};

    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readToEnd(file);
}

bool isMissing(const std::string& path) {
    return !statusOf(path) && errno == ENOENT;
}

bool saveFile(const std::string& path, std::string_view bytes, Flush flush) {
    const std::optional<Target> target = targetOf(path);
    if (!target)
        return false;
    switch (replaceFile(target->path, target->old, bytes, flush)) {
    case Outcome::saved:
        removeLeftovers(split(target->path));
        return true;
    case Outcome::noSecondFile:
        return target->old && writeDirectly(target->path, bytes, flush);
    case Outcome::failed:
        break;
    }
    return false;
}

struct FileReplacement::State {
    explicit State(Target replaced)
        : target(std::move(replaced))
        , second(split(target.path), Naming::atTheEnd) {}

    Target target;
    SecondFile second;
};

FileReplacement::FileReplacement(const std::string& path) {
    const std::optional<Target> target = targetOf(path);
    if (target)
        m_state = std::make_unique<State>(*target);
    keep(target && m_state->second && m_state->second.takeOver(target->old));
}

FileReplacement::~FileReplacement() = default;

bool FileReplacement::write(std::string_view bytes) {
    return m_error == 0 && keep(m_state->second.append(bytes));
}

bool FileReplacement::finish() {
    if (m_error != 0)
        return false;
    const std::string& path = m_state->target.path;
    if (!keep(m_state->second.flush() && m_state->second.putInPlace(path)))
        return false;
    flushFolder(split(path).folder);
    removeLeftovers(split(path));
    return true;
}

bool FileReplacement::keep(bool isDone) {
    if (!isDone)
        m_error = errno;
    return isDone;
}

bool isSavable(const std::string& path) {
    const std::optional<std::string> target = behindLinks(path);
    if (!target)
        return false;
    if (const std::optional<struct stat> status = statusOf(*target))
        return S_ISREG(status->st_mode) && ::access(target->c_str(), W_OK) == 0;
    const std::string folder = split(*target).folder;
    return ::access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0;
}

} // namespace orbisgrid
