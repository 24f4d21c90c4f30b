#include "ui/Window.h"

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QBuffer>
#include <QCloseEvent>
#include <QIcon>
#include <QImageReader>
#include <QPointer>
#include <QScreen>

#include "core/DataFile.h"

namespace ui {

namespace {
// A window manager's forced close may destroy a window outright instead of asking. The toolkit
// then only learns that the window is no longer exposed, as though it were minimised, and the
// program would go on with nothing on the desktop: a window destroyed counts as closed.
class DestroyedWindows : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr*) override {
        if (type != "xcb_generic_event_t") return false;
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        // The high bit marks an event that another client sent.
        if ((event->response_type & 0x7F) != XCB_DESTROY_NOTIFY) return false;
        const auto* destroyed = static_cast<const xcb_destroy_notify_event_t*>(message);
        // A window the toolkit destroyed itself is no longer known by its number.
        QWidget* w = QWidget::find(destroyed->window);
        // Closing makes new windows: not from inside the window system's event.
        if (w && w->isWindow()) QMetaObject::invokeMethod(w, &QWidget::close, Qt::QueuedConnection);
        return false;
    }
};

void closeDestroyedWindows() {
    static DestroyedWindows watch;
    // Installed again, it only moves to the front of the toolkit's filters.
    QCoreApplication::instance()->installNativeEventFilter(&watch);
}
}  // namespace

Window::Window(int width, int height, Qt::WindowFlags flags, QWidget* owner)
    : QWidget(owner, flags | Qt::Window) {
    setFixedSize(width, height);
    closeDestroyedWindows();
}

void Window::showCentred() {
    if (const QScreen* s = QGuiApplication::primaryScreen()) {
        // The frame that the window system draws round the window counts, where it is known
        // before the window shows.
        winId();
        const QSize outer = frameGeometry().size();
        const QRect desktop = s->availableGeometry();
        move(desktop.left() + (desktop.width() - outer.width()) / 2,
             desktop.top() + (desktop.height() - outer.height()) / 2);
    }
    show();
}

void Window::closeEvent(QCloseEvent* event) {
    if (closesOwner && parentWidget()) {
        event->setAccepted(parentWidget()->window()->close());
        return;
    }
    event->accept();
    if (onClose) onClose();
}

void setWindowIcon(const QStringList& files) {
    QIcon icon;
    for (const QString& f : files) {
        const std::optional<QByteArray> bytes = core::readDataFileOrWarn(f, core::limit::kIcon);
        if (!bytes) continue;
        QBuffer in;
        in.setData(*bytes);
        QImageReader reader(&in);
        // A small file may still claim a vast picture: its size is looked at before it is decoded.
        const QSize size = reader.size();
        QImage image;
        if (size.boundedTo({core::limit::kIconSide, core::limit::kIconSide}) != size)
            core::warnOnce(
                f, QStringLiteral("it is larger than %1 x %1 pixels").arg(core::limit::kIconSide));
        else if (reader.read(&image)) icon.addPixmap(QPixmap::fromImage(image));
    }
    QApplication::setWindowIcon(icon);
}

QString plainTitle(const QString& title) {
    // The toolkit takes "[*]" in a title for a place to mark unsaved changes; doubled, it shows.
    QString plain = title;
    return plain.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

void destroyAllWindows() {
    QList<QPointer<QWidget>> windows;
    for (QWidget* w : QApplication::topLevelWidgets()) windows.push_back(w);
    // An owned window is deleted with its owner; the guarded pointer then reads null.
    for (const QPointer<QWidget>& w : windows) delete w.data();
}

}  // namespace ui
