// Measures the window of the map: its opening, its painting, the pointer's read-out, its memory;
// each beside a window with a line of text, in the same run. Run it with QT_QPA_PLATFORM=offscreen,
// or on a display. Exit status: 1 where a goal is missed.

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
#include <type_traits>
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

/// A window of the same size with a line of text: what opening and painting one takes by itself.
class Yardstick : public QLabel {
public:
    Yardstick()
        : QLabel(QStringLiteral("a window with a text")) {
        setMouseTracking(true);
    }

    QSize sizeHint() const override { return {630, 700}; }

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        setText(QString::number(event->position().x()));
    }
};

/// Result: whether the goal is reached.
bool print(const char* what, double measured, double yardstick, double goal, const char* unit) {
    std::printf("%-42s %9.3f %9.3f %6.0f %s %s\n", what, measured, yardstick, goal, unit,
                measured <= goal ? "" : "MISSED");
    return measured <= goal;
}

template <typename Window>
double reopening(Window& window) {
    return medianMilliseconds([&] {
        window.close();
        if constexpr (std::is_same_v<Window, PathMap>)
            window.showSubject(path());
        window.show();
        QApplication::processEvents();
    });
}

double painting(QWidget& view, QImage& image) {
    return medianMilliseconds([&] { view.render(&image); });
}

double pointing(QWidget& view) {
    int x = 100;
    return medianMilliseconds([&] {
        const QPointF place(++x, 400);
        QMouseEvent event(QEvent::MouseMove, place, place, Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&view, &event);
    });
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QLabel loaded(QStringLiteral("so that fonts and style are there"));
    loaded.show();
    QApplication::processEvents();
    std::printf("%-42s %9s %9s %6s\n", "", "measured", "yardstick", "goal");

    const double atFirst = megabytes("VmRSS");
    Yardstick yardstick;
    const double bareFirst = milliseconds([&] {
        yardstick.show();
        QApplication::processEvents();
    });
    const double bareMemory = megabytes("VmHWM") - atFirst;
    const double before = megabytes("VmRSS");
    std::unique_ptr<PathMap> window;
    const double first = milliseconds([&] { window = opened(); });
    bool isGood = print("F2 to drawn, the first time", first, bareFirst, 60, "ms");
    isGood &=
        print("memory that the window adds", megabytes("VmHWM") - before, bareMemory, 8, "MB");
    isGood &=
        print("F2 to drawn, the second time", reopening(*window), reopening(yardstick), 25, "ms");

    auto& view = *window->findChild<PathMapView*>();
    window->resize(930, 1000);
    QApplication::processEvents();
    view.resize(900, 900);
    yardstick.resize(900, 900);
    QImage image(900, 900, QImage::Format_RGB32);
    const double bareRepaint = painting(yardstick, image);
    isGood &= print("a repaint of 900 x 900, the whole world", painting(view, image), bareRepaint,
                    16, "ms");
    const double turned = medianMilliseconds([&] {
        view.setShowsNight(true);
        view.render(&image);
    });
    isGood &= print("the same with a new picture", turned, bareRepaint, 22, "ms");
    isGood &= print("pointer move to read-out", pointing(view), pointing(yardstick), 1, "ms");
    return isGood ? 0 : 1;
}
