#pragma once

#include <QLabel>

namespace orbisgrid {

/// A label that shows a result. One can copy from it, with the mouse and with the keyboard: it is
/// reached with Tab, and its text is selected then.
class ResultLabel : public QLabel {
    Q_OBJECT

public:
    explicit ResultLabel(const QString& text, QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void makeSelectable();
};

} // namespace orbisgrid
