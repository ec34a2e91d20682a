#include "tests/packaging/scratch.h"

#include <gtest/gtest.h>

#include <sstream>

namespace orbisgrid {

namespace {

namespace fs = std::filesystem;

using test::shell;
using test::ShellResult;

class DebianPackageTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_scratch = std::make_unique<test::Scratch>();
        s_package = test::pack("DEB", s_scratch->path(""));
    }

    static void TearDownTestSuite() { s_scratch.reset(); }

    static std::string field(const std::string& name) {
        std::string text = shell("dpkg-deb -f '" + s_package.string() + "' " + name).output;
        text.erase(text.find_last_not_of('\n') + 1);
        return text;
    }

    /// Every file in the package as "mode owner path", folders left out.
    static std::set<std::string> files() {
        std::istringstream lines(
            shell("dpkg-deb -c '" + s_package.string() + "' | awk '!/^d/ {print $1, $2, $6}'")
                .output);
        std::set<std::string> found;
        for (std::string line; std::getline(lines, line);)
            found.insert(line);
        return found;
    }

    inline static std::unique_ptr<test::Scratch> s_scratch;
    inline static fs::path s_package;
};

TEST_F(DebianPackageTest, HasItsFiles) {
    std::set<std::string> expected{
        "-rwxr-xr-x root/root ./usr/bin/orbisgrid",
        "lrwxrwxrwx root/root ./usr/bin/orbisgrid-batch",
        "-rw-r--r-- root/root ./usr/libexec/orbisgrid/Orbisgrid.ini",
        "-rw-r--r-- root/root ./usr/libexec/orbisgrid/Readme.txt",
        "-rwxr-xr-x root/root ./usr/libexec/orbisgrid/orbisgrid",
        "-rwxr-xr-x root/root ./usr/libexec/orbisgrid/orbisgrid-batch",
        "-rw-r--r-- root/root ./usr/libexec/orbisgrid/orbisgrid-map.dat",
        "-rw-r--r-- root/root ./usr/libexec/orbisgrid/orbisgrid-window.so",
        "-rw-r--r-- root/root ./usr/share/applications/orbisgrid.desktop",
        "-rw-r--r-- root/root ./usr/share/bash-completion/completions/orbisgrid",
        "-rw-r--r-- root/root ./usr/share/bash-completion/completions/orbisgrid-batch",
        "-rw-r--r-- root/root ./usr/share/doc/orbisgrid/changelog.Debian.gz",
        "-rw-r--r-- root/root ./usr/share/doc/orbisgrid/copyright",
        "-rw-r--r-- root/root ./usr/share/icons/hicolor/scalable/apps/orbisgrid.svg",
        "-rw-r--r-- root/root ./usr/share/lintian/overrides/orbisgrid",
        "-rw-r--r-- root/root ./usr/share/man/man1/orbisgrid-batch.1.gz",
        "-rw-r--r-- root/root ./usr/share/man/man1/orbisgrid.1.gz",
        "-rw-r--r-- root/root ./usr/share/metainfo/org.example.orbisgrid.metainfo.xml",
    };
    for (const char* size : {"16", "22", "24", "32", "48", "64", "128", "256"})
        expected.insert(std::string("-rw-r--r-- root/root ./usr/share/icons/hicolor/") + size +
                        "x" + size + "/apps/orbisgrid.png");
    EXPECT_EQ(files(), expected);
}

TEST_F(DebianPackageTest, SaysWhatItNeeds) {
    EXPECT_EQ(field("Package"), "orbisgrid");
    EXPECT_EQ(field("Section"), "hamradio");
    const std::string depends = field("Depends");
    for (const char* package : {"libc6 (>= ", "libqt6widgets6 (>= ", "libxcb1", "qt6-qpa-plugins"})
        EXPECT_NE(depends.find(package), std::string::npos) << package << " in " << depends;
    EXPECT_EQ(field("Recommends"), "fonts-liberation, wl-clipboard, xdg-utils");
}

TEST_F(DebianPackageTest, ItsChangelogIsOfItsVersion) {
    EXPECT_TRUE(field("Version").starts_with(ORBISGRID_VERSION "-"));
    const std::string changelog =
        shell("dpkg-deb --fsys-tarfile '" + s_package.string() +
              "' | tar xO ./usr/share/doc/orbisgrid/changelog.Debian.gz | gzip -d")
            .output;
    EXPECT_TRUE(changelog.starts_with("orbisgrid (" + field("Version") + ") ")) << changelog;
}

TEST_F(DebianPackageTest, LintianHasNothingToSay) {
    const ShellResult result =
        shell("LC_ALL=C.UTF-8 lintian --allow-root --display-info --pedantic --fail-on"
              " error,warning '" +
              s_package.string() + "' 2>&1");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
}

TEST_F(DebianPackageTest, EachOverrideIsNeededAndHasItsReason) {
    const std::string overrides =
        test::contentOf(ORBISGRID_SOURCES "/packaging/debian/lintian-overrides");
    std::istringstream lines(overrides);
    bool isReason = false;
    int count = 0;
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(line.starts_with('#') || isReason) << line;
        count += line.starts_with('#') ? 0 : 1;
        isReason = line.starts_with('#');
    }
    const std::string shown = shell("LC_ALL=C.UTF-8 lintian --allow-root --show-overrides"
                                    " --display-info --pedantic '" +
                                    s_package.string() + "' | grep -c '^O: '")
                                  .output;
    EXPECT_EQ(shown, std::to_string(count) + "\n") << "an override that overrides nothing";
}

} // namespace

} // namespace orbisgrid
