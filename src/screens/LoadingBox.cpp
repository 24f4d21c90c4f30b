#include "screens/LoadingBox.h"

#include <QLabel>
#include <QProgressBar>

#include "screens/MatchTexts.h"
#include "ui/Labels.h"
#include "ui/RaisedFrame.h"

namespace screens {

LoadingBox::LoadingBox(QWidget* owner)
    : ui::Window(281, 58, Qt::Tool | Qt::FramelessWindowHint, owner) {
    closesOwner = true;
    new ui::RaisedFrame(this, 2);
    status_ = ui::makeLabel(this, 17, 6, 248, 17, QStringLiteral("Loading"), Qt::AlignCenter);
    bar_ = new QProgressBar(this);
    bar_->setGeometry(16, 26, 251, 20);
    bar_->setRange(0, 100);
    bar_->setValue(0);
    bar_->setTextVisible(false);
}

void LoadingBox::showState(const game::Loading& state) {
    const QString text = loadingText(state);
    if (status_->text() != text) status_->setText(text);
    bar_->setValue(static_cast<int>(state.progress));
    if (isHidden()) {
        showCentred();
        repaint();
    }
}

QString LoadingBox::status() const { return status_->text(); }

}  // namespace screens
