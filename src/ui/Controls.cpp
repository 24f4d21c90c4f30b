#include "ui/Controls.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QPointer>

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

void DestroyAllWindows() {
    QList<QPointer<QWidget>> windows;
    for (QWidget* w : QApplication::topLevelWidgets()) windows.push_back(w);
    // An owned window is deleted with its owner; the guarded pointer then reads null.
    for (const QPointer<QWidget>& w : windows) delete w.data();
}

QFont Tahoma(int pixelSize, bool bold) {
    static const QString family = [] {
        for (const char* path : {"/usr/share/wine/fonts/tahoma.ttf",
                                 "/usr/share/fonts/truetype/wine/tahoma.ttf"}) {
            const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(path));
            if (id < 0) continue;
            const QStringList families = QFontDatabase::applicationFontFamilies(id);
            if (!families.isEmpty()) return families.first();
        }
        return QStringLiteral("Sans Serif");
    }();
    QFont f(family);
    f.setPixelSize(pixelSize);
    f.setBold(bold);
    return f;
}

QLabel* MakeLabel(QWidget* parent, int left, int top, int width, int height, const QString& text,
                  Qt::Alignment align) {
    auto* l = new QLabel(text, parent);
    l->setGeometry(left, top, width, height);
    l->setAlignment(align);
    l->setFont(Tahoma(11));
    return l;
}

void SetLabelColour(QLabel* label, const QColor& text) {
    QPalette p = label->palette();
    p.setColor(QPalette::WindowText, text);
    label->setPalette(p);
}

}  // namespace ui

#include <QMessageBox>

namespace ui {
namespace {
std::function<void(const QString&)>& msgHook() {
    static std::function<void(const QString&)> hook;
    return hook;
}
}  // namespace

void SetMsgBoxHook(std::function<void(const QString&)> hook) { msgHook() = std::move(hook); }

void MsgBox(const QString& text, const QString& title) {
    if (msgHook()) {
        msgHook()(text);
        return;
    }
    QMessageBox::warning(nullptr, title, text);
}
}  // namespace ui
