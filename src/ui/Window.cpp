#include "ui/Window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QPointer>
#include <QScreen>

namespace ui {

Window::Window(int width, int height, Qt::WindowFlags flags, QWidget* owner)
    : QWidget(owner, flags | Qt::Window) {
    setFixedSize(width, height);
}

void Window::showCentred() {
    if (const QScreen* s = QGuiApplication::primaryScreen())
        move(s->availableGeometry().center() - QPoint(width() / 2, height() / 2));
    show();
}

void Window::closeEvent(QCloseEvent* event) {
    if (!closable) {
        event->ignore();
        return;
    }
    event->accept();
    if (onClose) onClose();
}

void setWindowIcon(const QStringList& files) {
    QIcon icon;
    for (const QString& f : files) icon.addFile(f);
    QApplication::setWindowIcon(icon);
}

void destroyAllWindows() {
    QList<QPointer<QWidget>> windows;
    for (QWidget* w : QApplication::topLevelWidgets()) windows.push_back(w);
    // An owned window is deleted with its owner; the guarded pointer then reads null.
    for (const QPointer<QWidget>& w : windows) delete w.data();
}

}  // namespace ui
