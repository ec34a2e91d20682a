#include "tests/desktop/started_window.h"
#include "tests/packaging/scratch.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

namespace fs = std::filesystem;

using test::shell;

class PortableArchiveTest : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directory(m_scratch.path("packed"));
        m_archive = test::pack("TGZ", m_scratch.path("packed"));
    }

    /// Unpacks it into a folder. Result: the program's folder there.
    fs::path unpacked(const std::string& name) const {
        fs::create_directory(m_scratch.path(name));
        EXPECT_EQ(
            shell("tar xzf '" + m_archive.string() + "' -C '" + m_scratch.path(name).string() + "'")
                .status,
            0);
        const auto entries = fs::directory_iterator(m_scratch.path(name));
        EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "one folder holds it all";
        return fs::directory_iterator(m_scratch.path(name))->path();
    }

    /// Starts the window of one copy, calculates, and ends it.
    void use(const fs::path& folder, const std::string& home) const {
        test::StartedWindow window(test::freshDesktopSession(m_scratch.path("home")) + "'" +
                                   (folder / "orbisgrid").string() + "'");
        ASSERT_FALSE(window.id().empty());
        EXPECT_EQ(window.latitudeAfter(home, "fn42aa"), " 42.0208");
        EXPECT_EQ(window.close(), 0);
    }

    test::Scratch m_scratch;
    fs::path m_archive;
};

TEST_F(PortableArchiveTest, HasItsFilesInOneFolder) {
    const fs::path folder = unpacked("one");
    EXPECT_TRUE(folder.filename().string().starts_with("orbisgrid-" ORBISGRID_VERSION "-linux-"));
    EXPECT_EQ(test::filesBelow(folder),
              (std::set<std::string>{"LICENSE", "Orbisgrid.ini", "Readme.txt", "orbisgrid",
                                     "orbisgrid-batch", "orbisgrid-map.dat", "orbisgrid-window.so",
                                     "orbisgrid.svg"}));
}

TEST_F(PortableArchiveTest, TwoCopiesHaveTwoSetsOfLists) {
    const fs::path one = unpacked("one");
    const fs::path other = unpacked("the other");
    const test::XServer server;
    server.useInThisProcess();
    use(one, "jo20aw");
    use(other, "io91aa");
    EXPECT_NE(test::contentOf(one / "Orbisgrid.ini").find("[Home data]\r\nJO20AW\r\n[**end**]"),
              std::string::npos);
    EXPECT_NE(test::contentOf(other / "Orbisgrid.ini").find("[Home data]\r\nIO91AA\r\n[**end**]"),
              std::string::npos);
}

} // namespace

} // namespace orbisgrid
