#include "tests/desktop/program.h"
#include "tests/desktop/session_manager.h"
#include "tests/desktop/started_window.h"
#include "tests/support/x_server.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace orbisgrid {

namespace {

/// The real window in a session whose manager ends it by the protocol.
class SessionEndTest : public testing::Test {
protected:
    void SetUp() override {
        m_server.useInThisProcess();
        m_server.startWindowManager();
        m_window = std::make_unique<test::StartedWindow>(
            m_program.windowCommand("SESSION_MANAGER=" + m_manager.address()));
        ASSERT_FALSE(m_window->id().empty());
        ASSERT_TRUE(m_manager.waitForProgram()) << "the window does not talk to the manager";
        ASSERT_EQ(m_window->latitudeAfter("jo20aw", "fn42aa"), " 42.0208");
        ASSERT_FALSE(isSaved("JO20AW"));
    }

    bool isSaved(const std::string& home) const {
        return m_program.ini().find("[Home data]\r\n" + home + "\r\n") != std::string::npos;
    }

    test::XServer m_server;
    test::SessionManager m_manager;
    test::Program m_program;
    std::unique_ptr<test::StartedWindow> m_window;
};

TEST_F(SessionEndTest, SavesWhenAskedAndEndsWhenTold) {
    ASSERT_TRUE(m_manager.announceEnd());
    EXPECT_TRUE(isSaved("JO20AW")) << "the manager may end it without another word";
    EXPECT_TRUE(m_manager.end());
    EXPECT_EQ(m_window->waitForEnd(), 0);
    EXPECT_TRUE(isSaved("JO20AW"));
}

/// Its way to start a program again is "orbisgrid -session <id>": without the launcher's folder,
/// and after an end that was wanted.
TEST_F(SessionEndTest, ItIsNotToBeStartedAgain) {
    EXPECT_EQ(m_manager.property("RestartStyleHint"), "CARD8 3") << "RestartNever, after any save";
    ASSERT_TRUE(m_manager.announceEnd());
    EXPECT_EQ(m_manager.property("RestartStyleHint"), "CARD8 3") << "RestartNever";
    EXPECT_TRUE(m_manager.end());
}

TEST_F(SessionEndTest, ACalledOffEndLeavesTheWindow) {
    ASSERT_TRUE(m_manager.announceEnd());
    EXPECT_TRUE(isSaved("JO20AW"));
    m_manager.callOff();
    EXPECT_EQ(m_window->latitudeAfter("kn51aa", "jn00aa"), " 40.0208");
    EXPECT_EQ(m_program.ini().find("KN51AA"), std::string::npos);
    EXPECT_TRUE(m_manager.announceEnd()) << "it can be asked again";
    EXPECT_NE(m_program.ini().find("KN51AA"), std::string::npos);
    EXPECT_EQ(m_window->close(), 0);
}

} // namespace

} // namespace orbisgrid
