#include "tests/desktop/keepers.h"
#include "tests/support/child.h"
#include "tests/support/x_server.h"
#include "ui/module1.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <gtest/gtest.h>

namespace orbisgrid {

namespace {

using test::comesTrue;
using test::shell;

/// The window as the server has it; the widget itself may still know the one that it had before it
/// was shown.
WId idOf(const QWidget& window) {
    return window.windowHandle()->winId();
}

bool isAbove(const QWidget& window) {
    QCoreApplication::processEvents();
    return shell("xprop -id " + std::to_string(idOf(window)) + " _NET_WM_STATE")
               .output.find("_NET_WM_STATE_ABOVE") != std::string::npos;
}

/// Position of a window's frame and whether it is on the screen, as the server has it.
std::string placeOf(const QWidget& window) {
    return shell("xwininfo -id " + std::to_string(idOf(window)) + " | grep -E 'Absolute|Map State'")
        .output;
}

class HideCounter : public QObject {
public:
    int hides = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        hides += event->type() == QEvent::Hide ? 1 : 0;
        return false;
    }
};

/// One test for everything: a process has one QApplication.
TEST(Stacking, WindowStaysInPlaceWhileItGoesUpAndDown) {
    test::XServer server;
    server.useInThisProcess();
    server.startWindowManager();
    int count = 0;
    const QApplication application(count, nullptr);

    QWidget window;
    window.setGeometry(200, 150, 300, 200);
    SetTopMost(window, true);
    EXPECT_FALSE(window.isVisible());
    window.show();
    EXPECT_TRUE(comesTrue([&] { return isAbove(window); })) << "set before it was shown";
    EXPECT_TRUE(comesTrue([&] {
        QCoreApplication::processEvents(); // hands on what was asked of the server
        return placeOf(window).find("IsViewable") != std::string::npos;
    }));

    HideCounter counter;
    window.installEventFilter(&counter);
    const std::string place = placeOf(window);
    const WId id = idOf(window);
    SetTopMost(window, false);
    EXPECT_TRUE(comesTrue([&] { return !isAbove(window); }));
    SetTopMost(window, true);
    EXPECT_TRUE(comesTrue([&] { return isAbove(window); }));
    EXPECT_EQ(idOf(window), id);
    EXPECT_EQ(placeOf(window), place);
    EXPECT_EQ(counter.hides, 0);
}

} // namespace

} // namespace orbisgrid
