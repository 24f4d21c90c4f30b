#include "ui/MessageBox.h"

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
