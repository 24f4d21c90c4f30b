#include "ui/Form.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>

namespace ui {

class FormWindow : public QWidget {
public:
    FormWindow(Form& form, QWidget* owner, Qt::WindowFlags flags)
        : QWidget(owner, flags | Qt::Window), form_(form) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        if (form_.HandleClose()) event->accept();
        else event->ignore();
    }

private:
    Form& form_;
};

Form::Form(int clientWidth, int clientHeight, Qt::WindowFlags flags)
    : width_(clientWidth), height_(clientHeight), flags_(flags) {}

Form::~Form() {
    // Screens are often program-wide objects that outlive the application object; a window left
    // at that point goes with the process.
    if (QCoreApplication::instance()) delete window_.data();
}

void Form::Load(QWidget* owner) {
    if (Loaded()) return;
    closing_ = false;
    auto* w = new FormWindow(*this, owner, flags_);
    w->setFixedSize(width_, height_);
    window_ = w;
    caption_.clear();
    CreateControls(w);
    if (!caption_.isEmpty()) w->setWindowTitle(caption_);
    Form_Load();
}

void Form::Show(QWidget* owner) {
    Load(owner);
    if (!window_) return;
    if (QScreen* s = QGuiApplication::primaryScreen()) {
        const QRect area = s->availableGeometry();
        window_->move(area.center() - QPoint(width_ / 2, height_ / 2));
    }
    window_->show();
}

void Form::Unload() {
    if (window_ && !closing_) window_->close();
}

bool Form::HandleClose() {
    bool cancel = false;
    Form_Unload(cancel);
    if (cancel) return false;
    closing_ = true;
    // The window may be closing from inside one of its own handlers; it goes once they return.
    window_->hide();
    window_->deleteLater();
    return true;
}

void Form::SetCaption(const QString& caption) {
    caption_ = caption;
    if (window_) window_->setWindowTitle(caption);
}

QString Form::Caption() const { return caption_; }

}  // namespace ui
