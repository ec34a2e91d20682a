#pragma once

#include "tests/support/child.h"

#include <filesystem>
#include <string>

namespace orbisgrid::test {

/// A folder of the test's own in which scripts find nothing but the programs that the test names.
/// It is gone with this object.
class ScriptBox {
public:
    ScriptBox();
    ~ScriptBox();
    ScriptBox(const ScriptBox&) = delete;
    ScriptBox& operator=(const ScriptBox&) = delete;
    ScriptBox(ScriptBox&&) = delete;
    ScriptBox& operator=(ScriptBox&&) = delete;

    /// In the box.
    std::filesystem::path path(const std::string& name) const { return m_root / name; }

    /// Writes a file, with the folders that it needs.
    void write(const std::string& name, const std::string& content) const;

    /// Lets scripts find a program of this machine. Throws if it has none.
    void offer(const std::string& program) const;

    /// Puts a shell script in the place of a program.
    void standIn(const std::string& program, const std::string& script) const;

    /// Runs a command of bash in the box, with standard error on standard output. TMPDIR is the
    /// box's folder "tmp".
    ShellResult run(const std::string& command) const;

    /// The same with a terminal as standard output.
    ShellResult runOnTerminal(const std::string& command) const;

    /// The command that reads in one of the project's scripts.
    static std::string source(const std::string& script);

private:
    std::string commandLine(const std::string& command) const;

    std::filesystem::path m_root;
};

} // namespace orbisgrid::test
