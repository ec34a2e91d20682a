#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orbisgrid {

/// The content of a regular file; nothing when there is none or it cannot be read to its end.
std::optional<std::string> readFile(const std::string& path);

/// Whether there is no file, as the system says it: a link that leads nowhere is none, a path that
/// cannot be looked at is not known to be.
bool isMissing(const std::string& path);

/// Whether a save waits for the disk. Waiting takes 4 to 12 ms and is what keeps the content
/// through a loss of power; a full disk and a kill do no harm either way.
enum class Flush { beforeReturning, later };

/// Puts `bytes` in the place of a file's content, or makes the file.
///
/// - Whatever happens (a full disk, a kill, the power where it is flushed), the path names the old
///   content or the new one: a second file beside it is written, flushed, then renamed.
/// - Links are followed; mode and, where the system allows it, owner are kept. A file that may not
///   be written is not replaced, and neither is anything but a regular file.
/// - Where no second file can be made or put in its place (folder read-only, file writable) the
///   file is written directly. The space is reserved first and the old content put back on failure,
///   so a full disk does no harm there; a kill in these few system calls can.
/// - After a save, second files that earlier saves of this file left when they were killed are
///   removed, if they are older than `leftoverAgeSeconds`: a younger one may be at work.
///
/// Result: whether the file now holds `bytes`; if not, it holds what it held.
bool saveFile(const std::string& path, std::string_view bytes,
              Flush flush = Flush::beforeReturning);

/// The same for content that comes piece by piece: the second file grows with it, and takes the
/// file's place at the end. Whoever reads the old content meanwhile reads it to its end. Nothing is
/// ever written directly: where no second file can be made, there is no replacement. Where the file
/// system knows files without a name, the second one has none until the end, so that a process that
/// is interrupted leaves nothing.
class FileReplacement {
public:
    /// Makes the second file; `error` says whether that could be done.
    explicit FileReplacement(const std::string& path);

    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    FileReplacement(FileReplacement&&) = delete;
    FileReplacement& operator=(FileReplacement&&) = delete;

    /// What is not finished is gone, and the file as it was.
    ~FileReplacement();

    /// Puts `bytes` behind what was written before. Result: false once something has failed.
    bool write(std::string_view bytes);

    /// Puts the new content in the file's place, when the disk has it. To be called once.
    /// Result: whether it is there; if not, the file holds what it held.
    bool finish();

    /// 0, or the system's number for what failed first.
    int error() const { return m_error; }

private:
    struct State;

    bool keep(bool isDone);

    std::unique_ptr<State> m_state;
    int m_error = 0;
};

/// Far longer than a save takes, even on a sleeping network disk.
inline constexpr int leftoverAgeSeconds = 600;

/// Whether `saveFile` would be allowed to write there, as far as rights tell.
bool isSavable(const std::string& path);

} // namespace orbisgrid
