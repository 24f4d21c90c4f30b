#include "ui/Program.h"

#include <QApplication>
#include <QIcon>
#include <QPointer>
#include <QWidget>

namespace ui {

namespace {
std::function<void()>& endHook() {
    static std::function<void()> hook;
    return hook;
}
}  // namespace

void SetEndProgramHook(std::function<void()> hook) { endHook() = std::move(hook); }

void EndProgram() {
    if (endHook()) {
        endHook()();
        return;
    }
    QApplication::closeAllWindows();
    QCoreApplication::exit(0);
}

void SetWindowIcon(const QStringList& files) {
    QIcon icon;
    for (const QString& f : files) icon.addFile(f);
    QApplication::setWindowIcon(icon);
}

void DestroyAllWindows() {
    QList<QPointer<QWidget>> windows;
    for (QWidget* w : QApplication::topLevelWidgets()) windows.push_back(w);
    // An owned window is deleted with its owner; the guarded pointer then reads null.
    for (const QPointer<QWidget>& w : windows) delete w.data();
}

}  // namespace ui
