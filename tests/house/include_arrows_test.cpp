#include "tests/house/include_arrows.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

namespace orbisgrid::test {

namespace {

namespace fs = std::filesystem;

/// A tree of source files that disappears with the test.
class PlantedTree {
public:
    PlantedTree()
        : m_root(fs::temp_directory_path() /
                 ("orbisgrid-house-" + std::to_string(std::random_device{}()))) {}

    PlantedTree(const PlantedTree&) = delete;
    PlantedTree& operator=(const PlantedTree&) = delete;

    ~PlantedTree() { fs::remove_all(m_root); }

    void plant(const std::string& file, const std::string& line) const {
        fs::create_directories((m_root / file).parent_path());
        std::ofstream(m_root / file) << "#pragma once\n" << line << "\n";
    }

    const fs::path& root() const { return m_root; }

private:
    fs::path m_root;
};

TEST(Arrows, AreKeptByEveryInclude) {
    EXPECT_EQ(brokenArrows(ORBISGRID_SOURCES), std::vector<std::string>{});
}

TEST(Arrows, ThereAreSourcesToLookAt) {
    for (const char* file : {"core/text.h", "ui/locator_converter.h", "app/main.cpp"})
        EXPECT_TRUE(fs::exists(fs::path(ORBISGRID_SOURCES) / file)) << file;
}

TEST(Arrows, QtIsWhereTheWindowsAre) {
    const PlantedTree tree;
    tree.plant("ui/a.h", "#include <QWidget>");
    tree.plant("app/window/a.cpp", "#include <QApplication>\n#include \"ui/a.h\"");
    tree.plant("app/main.cpp", "#include \"ui/version.h\"");
    EXPECT_EQ(brokenArrows(tree.root()), std::vector<std::string>{});
}

struct Plant {
    const char* file;
    const char* line;
    const char* why;
};

class PlantedViolation : public testing::TestWithParam<Plant> {};

TEST_P(PlantedViolation, IsFound) {
    const PlantedTree tree;
    tree.plant("core/text.h", "#include <string>");
    tree.plant(GetParam().file, GetParam().line);
    const std::vector<std::string> broken = brokenArrows(tree.root());
    ASSERT_EQ(broken.size(), 1U);
    EXPECT_TRUE(broken[0].ends_with(GetParam().why)) << broken[0];
}

INSTANTIATE_TEST_SUITE_P(
    Plants, PlantedViolation,
    testing::Values(
        Plant{"core/angles.cpp", "#include \"geodesy/great_circle.h\"",
              "no arrow from core/ to geodesy/"},
        Plant{"aprs/uiview.cpp", "  #  include  \"geodesy/vincenty.h\"",
              "no arrow from aprs/ to geodesy/"},
        Plant{"geodesy/vincenty.h", "#include \"aprs/uiview.h\"",
              "no arrow from geodesy/ to aprs/"},
        Plant{"map/a.cpp", "#include \"panels/text_box.h\"", "no arrow from map/ to panels/"},
        Plant{"map/a.cpp", "#include <QPainter>", "Qt outside ui/ and app/window/"},
        Plant{"settings/a.h", "#include \"panels/message.h\"",
              "no arrow from settings/ to panels/"},
        Plant{"platform/a.h", "#include \"ui/icons.h\"", "no arrow from platform/ to ui/"},
        Plant{"ui/a.cpp", "#include \"geodesy/great_circle.h\"", "no arrow from ui/ to geodesy/"},
        Plant{"ui/a.cpp", "#include \"core/number_text.h\"", "no arrow from ui/ to core/"},
        Plant{"panels/a.cpp", "#include <QString>", "Qt outside ui/ and app/window/"},
        Plant{"core/a.cpp", "#include <QtCore/qglobal.h>", "Qt outside ui/ and app/window/"},
        Plant{"platform/a.h", "#include <QString>", "Qt outside ui/ and app/window/"},
        Plant{"app/main.cpp", "#include <QCoreApplication>", "Qt outside ui/ and app/window/"},
        Plant{"app/main.cpp", "#include \"ui/qt_text.h\"", "the executable does without Qt"},
        Plant{"app/main.cpp", "#include \"app/window/window_run.h\"",
              "the executable does without Qt"},
        Plant{"app/window/a.cpp", "#include <unistd.h>",
              "not the standard library, and outside platform/"},
        Plant{"ui/a.cpp", "#include <unistd.h>", "not the standard library, and outside platform/"},
        Plant{"app/a.cpp", "#include <xcb/xcb.h>",
              "not the standard library, and outside platform/"},
        Plant{"core/a.cpp", "#include <dirent.h>",
              "not the standard library, and outside platform/"},
        Plant{"records/a.h", "#include \"batch/list.h\"", "no arrow from records/ to batch/"},
        Plant{"batch/a.h", "#include \"panels/message.h\"", "no arrow from batch/ to panels/"},
        Plant{"batch/a.cpp", "#include <getopt.h>",
              "not the standard library, and outside platform/"},
        Plant{"core/a.cpp", "#include \"text.h\"", "not written from the root"}));

} // namespace

} // namespace orbisgrid::test
