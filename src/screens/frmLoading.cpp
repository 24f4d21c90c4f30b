#include "screens/frmLoading.h"

#include <QLabel>
#include <QProgressBar>

#include "ui/Labels.h"
#include "ui/RaisedFrame.h"

frmLoading::frmLoading() : ui::Form(281, 58, Qt::Tool | Qt::FramelessWindowHint) {}

frmLoading& frmLoading::Instance() {
    static frmLoading f;
    return f;
}

void frmLoading::CreateControls(QWidget* window) {
    progress_ = 0;
    new ui::RaisedFrame(window, 2);
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
