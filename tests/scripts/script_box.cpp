#include "tests/scripts/script_box.h"

#include "tests/support/new_folder.h"

#include <fstream>
#include <stdexcept>

namespace orbisgrid::test {

namespace fs = std::filesystem;

ScriptBox::ScriptBox()
    : m_root(newFolder("scripts")) {
    fs::create_directory(path("bin"));
    fs::create_directory(path("tmp"));
    for (const char* program : {"bash", "cat", "env", "id", "mktemp", "rm"})
        offer(program);
}

ScriptBox::~ScriptBox() {
    std::error_code error;
    fs::remove_all(m_root, error);
}

void ScriptBox::write(const std::string& name, const std::string& content) const {
    fs::create_directories(path(name).parent_path());
    std::ofstream(path(name), std::ios::binary) << content;
}

void ScriptBox::offer(const std::string& program) const {
    std::string place = shell("command -v " + program).output;
    place.erase(place.find_last_not_of('\n') + 1);
    if (place.empty())
        throw std::runtime_error("there is no " + program);
    fs::create_symlink(place, m_root / "bin" / program);
}

void ScriptBox::standIn(const std::string& program, const std::string& script) const {
    const fs::path file = m_root / "bin" / program;
    fs::remove(file); // or it would be written through the link of `offer`
    std::ofstream(file) << "#!/bin/sh\n" << script << "\n";
    fs::permissions(file, fs::perms::owner_all);
}

std::string ScriptBox::source(const std::string& script) {
    return ". '" ORBISGRID_SOURCES "/scripts/" + script + "'; ";
}

std::string ScriptBox::commandLine(const std::string& command) const {
    std::ofstream(path("command")) << command << "\n";
    return "cd '" + m_root.string() + "' && env -i PATH='" + path("bin").string() + "' TMPDIR='" +
           path("tmp").string() + "' bash '" + path("command").string() + "' 2>&1";
}

ShellResult ScriptBox::run(const std::string& command) const {
    return shell(commandLine(command));
}

ShellResult ScriptBox::runOnTerminal(const std::string& command) const {
    write("on-terminal", commandLine(command));
    return shell("script --quiet --return --command 'sh " + path("on-terminal").string() +
                 "' /dev/null");
}

} // namespace orbisgrid::test
