#include "ui/OwnedBox.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace ui {

namespace {
class OwnerWatch : public QObject {
public:
    explicit OwnerWatch(QWidget* box) : QObject(box), box_(box) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (box_ && box_->isVisible() && event->type() == QEvent::WindowActivate) giveFocusSoon();
        return QObject::eventFilter(watched, event);
    }

private:
    // Not from inside the owner's activation, which is still being handled.
    void giveFocusSoon() {
        QMetaObject::invokeMethod(
            box_, [box = box_] { giveFocus(box); }, Qt::QueuedConnection);
    }

    QPointer<QWidget> box_;
};
}  // namespace

void keepAboveOwner(QWidget* box) {
    giveFocus(box);
    if (QWidget* owner = box->parentWidget())
        owner->window()->installEventFilter(new OwnerWatch(box));
}

void giveFocus(QWidget* window) {
    if (!window || !window->isVisible()) return;
    window->raise();
    window->activateWindow();
}

}  // namespace ui
