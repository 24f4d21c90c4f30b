#include "ui/Activation.h"

#include <QEvent>
#include <QWidget>

namespace ui {

namespace {
class ActivationFilter : public QObject {
public:
    ActivationFilter(QObject* parent, std::function<void()> handler)
        : QObject(parent), handler_(std::move(handler)) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Show:
            case QEvent::WindowActivate:
                // The activation that follows a showing is the same activation.
                if (!active_) {
                    active_ = true;
                    handler_();
                }
                break;
            case QEvent::Hide:
            case QEvent::WindowDeactivate: active_ = false; break;
            default: break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> handler_;
    bool active_ = false;
};
}  // namespace

void onActivate(QWidget* window, std::function<void()> handler) {
    window->installEventFilter(new ActivationFilter(window, std::move(handler)));
}

}  // namespace ui
