#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <map>
#include <optional>

namespace orbisgrid::test {

/// The surroundings of one test: folders of its own and programs that stand in for the desktop's,
/// so that nothing a test does reaches the person who runs it. Make one in init() and end it in
/// cleanup(): its end puts the environment back, so two must not overlap.
///
/// While it lives
/// - `programFolder()` is an empty folder for the files beside the program,
/// - XDG_CONFIG_HOME and XDG_DATA_HOME are empty folders,
/// - PATH is one folder, which holds nothing but a stand-in for xdg-open (and what `installProgram`
///   adds), so no other program of the machine is found,
/// - XDG_CURRENT_DESKTOP is empty.
class SealedBox {
public:
    SealedBox();
    SealedBox(const SealedBox&) = delete;
    SealedBox& operator=(const SealedBox&) = delete;
    ~SealedBox();

    QString programFolder() const;
    QString configFolder() const;

    /// Writes a file beside the program.
    void writeProgramFile(const QString& name, const QByteArray& content) const;

    /// The bytes of a file beside the program; nothing where there is none.
    std::optional<QByteArray> programFile(const QString& name) const;

    /// Adds a program to the only folder of PATH. It records that it was started and does nothing.
    /// Result: its full path.
    QString installProgram(const QString& name) const;

    /// Sets an environment variable until the box ends.
    void setVariable(const char* name, const QByteArray& value);

    /// Waits (at most 5 seconds) until xdg-open was started, and takes that record away.
    /// Result: its one argument, byte by byte; nothing where it was not started or had another
    /// number of arguments.
    std::optional<QByteArray> takeOpenedAddress() const;

    /// Waits as `takeOpenedAddress` for any installed program.
    /// Result: whether it was started, without arguments.
    bool takeStart(const QString& program) const;

    /// Whether no program was started that was not taken; waits a moment for a late one.
    bool nothingStarted() const;

private:
    QString folder(const QString& name) const;
    std::optional<QByteArray> takeRecord(const QString& program) const;

    QTemporaryDir m_directory;
    std::map<QByteArray, std::optional<QByteArray>> m_previousVariables;
};

} // namespace orbisgrid::test
