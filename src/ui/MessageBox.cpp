#include "ui/MessageBox.h"

#include <QMessageBox>

namespace ui {

namespace {
std::function<void(const QString&)>& hook() {
    static std::function<void(const QString&)> h;
    return h;
}
}  // namespace

void setMessageHook(std::function<void(const QString&)> h) { hook() = std::move(h); }

void showMessage(const QString& text, const QString& title) {
    if (hook()) {
        hook()(text);
        return;
    }
    // File and character names in the text are shown as they are, never as formatting.
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace ui
