#include "ui/options_menu.h"

#include <QMenu>

#include <array>

namespace orbisgrid {

void showOptionsMenu(QWidget& window, const QPoint& globalPosition,
                     const std::function<void()>& mnuPasted,
                     const std::function<void(int)>& mnuPaste) {
    QMenu menu(QStringLiteral("Options"), &window);
    menu.setObjectName(QStringLiteral("mnuOptions"));
    QAction* paste = menu.addAction(QStringLiteral("Paste"));
    paste->setObjectName(QStringLiteral("mnuPasted"));
    QObject::connect(paste, &QAction::triggered, &menu, mnuPasted);
    menu.addSeparator()->setObjectName(QStringLiteral("niks1"));

    const std::array captions{QStringLiteral("Paste into Home:"),
                              QStringLiteral("Paste into Target:"),
                              QString(),
                              QStringLiteral("Paste here"),
                              QString(),
                              QStringLiteral("Copy")};
    int index = 0;
    for (const QString& caption : captions) {
        QAction* entry = caption.isEmpty() ? menu.addSeparator() : menu.addAction(caption);
        entry->setObjectName(QStringLiteral("mnuPaste_") + QString::number(index));
        QObject::connect(entry, &QAction::triggered, &menu,
                         [&mnuPaste, index] { mnuPaste(index); });
        ++index;
    }
    menu.exec(globalPosition);
}

} // namespace orbisgrid
