#include "batch/input.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <tuple>

namespace orbisgrid {

namespace {

class InputTest : public testing::Test {
protected:
    static std::string made(const std::string& name, const std::string& bytes) {
        std::string path = testing::TempDir() + "orbisgrid_input_" + name;
        std::ofstream(path) << bytes;
        return path;
    }

    ~InputTest() override {
        for (const std::string& path : {m_five, m_eleven})
            std::ignore = std::filesystem::remove(path);
    }

    const std::string m_five = made("five", "JO20\n");
    const std::string m_eleven = made("eleven", "FN42AA IO91");
};

TEST_F(InputTest, HasASizeWhereEachFileSaysIts) {
    EXPECT_EQ(totalOf({}), 0U);
    EXPECT_EQ(totalOf({m_five}), 5U);
    EXPECT_EQ(totalOf({m_five, m_eleven, m_five}), 21U);
    EXPECT_EQ(totalOf({m_five, "/dev/null"}), std::nullopt);
    EXPECT_EQ(totalOf({m_five + ".none", m_five}), std::nullopt);
}

TEST_F(InputTest, IsOfNoEndWhereTheOutputIsOneOfTheFiles) {
    const FileDescriptor output(::open(m_five.c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(fileThatIs(output, {m_eleven, m_five}), m_five);
    EXPECT_EQ(fileThatIs(output, {m_eleven, "-"}), std::nullopt);
    EXPECT_EQ(fileThatIs(FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC)), {"/dev/null"}),
              std::nullopt);
}

TEST_F(InputTest, GivesItsBytesAsFarAsThereIsRoom) {
    FileSource source(m_eleven);
    ASSERT_TRUE(source.isOpen());
    std::array<char, 8> room{};
    EXPECT_EQ(source.read(room), 8U);
    EXPECT_EQ(std::string(room.data(), 8), "FN42AA I");
    EXPECT_EQ(source.read(room), 3U);
    EXPECT_EQ(source.read(room), 0U);
}

TEST_F(InputTest, IsNotOpenWhereThereIsNone) {
    EXPECT_FALSE(FileSource(m_five + ".none").isOpen());
    EXPECT_EQ(errno, ENOENT);
}

} // namespace

} // namespace orbisgrid
