#include "ui/Form.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <vector>

#include "ui/Clock.h"
#include "ui/Timer.h"

namespace ui {

namespace {
// The screens whose handlers are running, innermost last, each with the showing it began in.
struct Work {
    const Form* form;
    std::uint32_t showing;
};
std::vector<Work>& working() {
    static std::vector<Work> w;
    return w;
}

class WorkScope {
public:
    WorkScope(const Form* form, std::uint32_t showing) { working().push_back({form, showing}); }
    ~WorkScope() { working().pop_back(); }
    WorkScope(const WorkScope&) = delete;
    WorkScope& operator=(const WorkScope&) = delete;
};
}  // namespace

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
    ++showing_;
    auto* w = new FormWindow(*this, owner, flags_);
    w->setFixedSize(width_, height_);
    window_ = w;
    caption_.clear();
    CreateControls(w);
    if (!caption_.isEmpty()) w->setWindowTitle(caption_);
    RunHandler([this] { Form_Load(); });
}

void Form::Show(QWidget* owner) {
    Load(owner);
    if (!Loaded()) return;
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
    if (closing_) return true;
    // Marked first: ending the program from Form_Unload closes every window, this one again.
    closing_ = true;
    bool cancel = false;
    Form_Unload(cancel);
    if (cancel) {
        closing_ = false;
        return false;
    }
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

void Form::RunHandler(const std::function<void()>& handler) {
    const WorkScope scope(this, showing_);
    try {
        handler();
    } catch (const ScreenClosed&) {
        // The screen went while the handler pumped events: its work ends here.
    }
}

void Form::OnTimer(Timer& timer, std::function<void()> handler) {
    // A screen whose window went with its owner's never got to stop its timers.
    timer.SetHandler([this, handler = std::move(handler)] {
        if (Loaded()) RunHandler(handler);
    });
}

void Form::ThrowIfAbandoned() {
    if (working().empty()) return;
    const Work& w = working().back();
    if (!w.form->Loaded() || w.form->showing_ != w.showing) throw ScreenClosed{};
}

void PumpEvents() {
    clock().DoEvents();
    Form::ThrowIfAbandoned();
}

void WaitForEvents(std::int32_t deadline) {
    clock().WaitEvents(deadline);
    Form::ThrowIfAbandoned();
}

}  // namespace ui
