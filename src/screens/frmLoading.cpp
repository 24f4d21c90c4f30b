#include "screens/frmLoading.h"

#include <QLabel>
#include <QPainter>
#include <QProgressBar>

#include "ui/Controls.h"

namespace {
// The raised edge: light on the top and left, shadow on the right and bottom, 2 pixels wide.
class RaisedFrame : public QWidget {
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const QColor light = palette().color(QPalette::Light);
        const QColor dark = palette().color(QPalette::Dark);
        const int w = width(), h = height();
        p.fillRect(0, 0, w, 2, light);
        p.fillRect(0, 0, 2, h, light);
        p.fillRect(w - 2, 0, 2, h, dark);
        p.fillRect(0, h - 2, w, 2, dark);
    }
};
}  // namespace

frmLoading::frmLoading() : ui::Form(281, 58, Qt::Tool | Qt::FramelessWindowHint) {}

frmLoading& frmLoading::Instance() {
    static frmLoading f;
    return f;
}

void frmLoading::CreateControls(QWidget* window) {
    progress_ = 0;
    auto* frame = new RaisedFrame(window);
    frame->setGeometry(0, 0, 281, 58);
    lblStatus = ui::MakeLabel(window, 17, 6, 248, 17, QStringLiteral("Loading"), Qt::AlignCenter);
    ProgressBar = new QProgressBar(window);
    ProgressBar->setGeometry(16, 26, 251, 20);
    ProgressBar->setRange(0, 100);
    ProgressBar->setValue(0);
    ProgressBar->setTextVisible(false);
}

void frmLoading::Open(QWidget* owner) {
    Show(owner);
    if (window()) window()->repaint();
}

void frmLoading::SetProgress(double value) {
    progress_ = value;
    if (Loaded()) ProgressBar->setValue(static_cast<int>(value));
    if (onProgress) onProgress(value);
}

void frmLoading::SetStatus(const QString& text) {
    if (Loaded()) lblStatus->setText(text);
    if (onStatus) onStatus(text);
}

QString frmLoading::Status() const { return Loaded() ? lblStatus->text() : QString(); }
