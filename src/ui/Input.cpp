#include "ui/Input.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace ui {

namespace {

class KeyFilter : public QObject {
public:
    KeyFilter(QObject* parent, std::function<void(CharCode&)> handler)
        : QObject(parent), handler_(std::move(handler)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        const QString text = static_cast<QKeyEvent*>(event)->text();
        if (text.isEmpty() || text[0].unicode() == 0x7F) return false;
        CharCode code = text[0].unicode();
        handler_(code);
        return code == 0;
    }

private:
    std::function<void(CharCode&)> handler_;
};

class ClickFilter : public QObject {
public:
    ClickFilter(QWidget* control, std::function<void()> handler)
        : QObject(control), control_(control), handler_(std::move(handler)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonRelease)
            return QObject::eventFilter(watched, event);
        auto* mouse = static_cast<QMouseEvent*>(event);
        // Events can be sent to a hidden widget directly; a hidden control still isn't there.
        if (mouse->button() == Qt::LeftButton && control_->isVisible() &&
            control_->rect().contains(mouse->position().toPoint()))
            handler_();
        return true;
    }

private:
    QWidget* control_;
    std::function<void()> handler_;
};

}  // namespace

void onKeyPress(QWidget* control, std::function<void(CharCode&)> handler) {
    control->installEventFilter(new KeyFilter(control, std::move(handler)));
}

void onClick(QWidget* control, std::function<void()> handler) {
    control->installEventFilter(new ClickFilter(control, std::move(handler)));
}

}  // namespace ui
