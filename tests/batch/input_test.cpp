#include "batch/input.h"
#include "tests/platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <array>
#include <cerrno>

namespace orbisgrid {

namespace {

class InputTest : public testing::Test {
protected:
    const test::TemporaryFolder m_folder;
    const std::string m_five = m_folder.make("five", "JO20\n");
    const std::string m_eleven = m_folder.make("eleven", "FN42AA IO91");
};

TEST_F(InputTest, HasASizeWhereEachFileSaysIts) {
    EXPECT_EQ(totalOf({}), 0U);
    EXPECT_EQ(totalOf({m_five}), 5U);
    EXPECT_EQ(totalOf({m_five, m_eleven, m_five}), 21U);
    EXPECT_EQ(totalOf({m_five, "/dev/null"}), std::nullopt);
    EXPECT_EQ(totalOf({m_folder.path("none"), m_five}), std::nullopt);
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
    EXPECT_FALSE(FileSource(m_folder.path("none")).isOpen());
    EXPECT_EQ(errno, ENOENT);
}

} // namespace

} // namespace orbisgrid
