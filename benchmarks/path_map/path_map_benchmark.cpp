// Measures the window of the map: its opening, its painting, the pointer's read-out, its memory.
// Run it with QT_QPA_PLATFORM=offscreen, or on a display. Exit status: 1 where a goal is missed.

#include "ui/path_map_view.h"
#include "ui/path_map_window.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

using namespace orbisgrid;

namespace {

constexpr int rounds = 31;

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

template <typename Work>
double milliseconds(const Work& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

template <typename Work>
double medianMilliseconds(const Work& work) {
    std::vector<double> all;
    for (int i = 0; i < rounds; ++i)
        all.push_back(milliseconds(work));
    return median(std::move(all));
}

/// Megabytes that the process has in memory of its own: "VmHWM" is the most that it had.
double megabytes(const std::string& field) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field + ":"))
            return std::stod(line.substr(field.size() + 1)) / 1024;
    }
    return 0;
}

MapSubject path() {
    return subjectOfPath({u"JO20AW", u"FN42AA"}).value();
}

std::unique_ptr<PathMap> opened() {
    auto window = std::make_unique<PathMap>(
        MapSurroundings{ORBISGRID_OUTLINES, [] { return Moment{1'782'043'200}; }});
    window->showSubject(path());
    window->show();
    QApplication::processEvents();
    return window;
}

bool isReached(const char* what, double measured, double goal, const char* unit) {
    std::printf("%-44s %8.2f %8.2f %s %s\n", what, measured, goal, unit,
                measured <= goal ? "" : "MISSED");
    return measured <= goal;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QLabel yardstick(QStringLiteral("a window with a text"));
    yardstick.resize(600, 400);
    yardstick.show();
    QApplication::processEvents();
    const double before = megabytes("VmRSS");
    std::printf("%-44s %8s %8s\n", "", "measured", "goal");

    std::unique_ptr<PathMap> window;
    const double first = milliseconds([&] { window = opened(); });
    bool isGood = isReached("F2 to drawn, the first time", first, 60, "ms");
    isGood &= isReached("memory that the window adds", megabytes("VmHWM") - before, 8, "MB");
    const double again = medianMilliseconds([&] {
        window->close();
        window->showSubject(path());
        window->show();
        QApplication::processEvents();
    });
    isGood &= isReached("F2 to drawn, the second time", again, 25, "ms");

    auto& view = *window->findChild<PathMapView*>();
    window->resize(930, 1000);
    QApplication::processEvents();
    view.resize(900, 900);
    QImage image(900, 900, QImage::Format_RGB32);
    const double repaint = medianMilliseconds([&] { view.render(&image); });
    isGood &= isReached("a repaint of 900 x 900, the whole world", repaint, 16, "ms");
    const double turned = medianMilliseconds([&] {
        view.setShowsNight(true);
        view.render(&image);
    });
    isGood &= isReached("the same with a new picture", turned, 22, "ms");

    int x = 100;
    const double move = medianMilliseconds([&] {
        const QPointF place(++x, 400);
        QMouseEvent event(QEvent::MouseMove, place, place, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&view, &event);
    });
    isGood &= isReached("pointer move to read-out", move, 1, "ms");
    return isGood ? 0 : 1;
}
