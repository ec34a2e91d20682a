#include "ui/options_menu.h"

#include <QMenu>

namespace orbisgrid {

void showOptionsMenu(QWidget& window, const QPoint& globalPosition,
                     const std::function<void()>& mnuPasted,
                     const std::vector<MenuEntry>& mnuPaste) {
    QMenu menu(QStringLiteral("Options"), &window);
    menu.setObjectName(QStringLiteral("mnuOptions"));
    QAction* paste = menu.addAction(QStringLiteral("Paste"));
    paste->setObjectName(QStringLiteral("mnuPasted"));
    QObject::connect(paste, &QAction::triggered, &menu, mnuPasted);
    menu.addSeparator()->setObjectName(QStringLiteral("niks1"));
    int index = 0;
    for (const MenuEntry& entry : mnuPaste) {
        QAction* action =
            entry.caption.isEmpty() ? menu.addSeparator() : menu.addAction(entry.caption);
        action->setObjectName(QStringLiteral("mnuPaste_") + QString::number(index++));
        if (entry.chosen)
            QObject::connect(action, &QAction::triggered, &menu, entry.chosen);
    }
    menu.exec(globalPosition);
}

} // namespace orbisgrid
