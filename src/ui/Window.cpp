#include "ui/Window.h"

#include <QApplication>
#include <QBuffer>
#include <QCloseEvent>
#include <QIcon>
#include <QImageReader>
#include <QPointer>
#include <QScreen>

#include "core/DataFile.h"

namespace ui {

Window::Window(int width, int height, Qt::WindowFlags flags, QWidget* owner)
    : QWidget(owner, flags | Qt::Window) {
    setFixedSize(width, height);
}

void Window::showCentred() {
    if (const QScreen* s = QGuiApplication::primaryScreen())
        move(s->availableGeometry().center() - QPoint(width() / 2, height() / 2));
    show();
}

void Window::closeEvent(QCloseEvent* event) {
    if (!closable) {
        event->ignore();
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
