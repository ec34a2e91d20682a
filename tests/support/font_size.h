#pragma once

#include <QApplication>
#include <QFont>
#include <QTest>

namespace orbisgrid::test {

/// The application's font has another size while this lives.
class FontSize {
public:
    explicit FontSize(int points)
        : m_before(QApplication::font()) {
        QFont font = m_before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }

    ~FontSize() { QApplication::setFont(m_before); }

    FontSize(const FontSize&) = delete;
    FontSize& operator=(const FontSize&) = delete;

private:
    QFont m_before;
};

/// Rows for a test that fetches "points": the sizes that people use.
inline void addFontSizes() {
    QTest::addColumn<int>("points");
    for (const int points : {8, 10, 14, 18})
        QTest::addRow("%d points", points) << points;
}

} // namespace orbisgrid::test
