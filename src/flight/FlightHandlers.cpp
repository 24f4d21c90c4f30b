// Wiring of the aiming controls and the flight timers, done anew with every showing of the screen.
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

#include "match/frmGrumbo.h"

namespace {

// Hands each typed character of a text box to its KeyPress handler, which may swallow it by
// setting the code to 0.
class KeyFilter : public QObject {
  public:
    using Handler = void (frmGrumbo::*)(grumbo::Integer&);
    KeyFilter(QObject* parent, frmGrumbo& form, Handler handler)
        : QObject(parent), form_(form), handler_(handler) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        const QString text = static_cast<QKeyEvent*>(event)->text();
        // Keys that type nothing (arrows, Delete, Home) are editing keys, not characters.
        if (text.isEmpty() || text[0].unicode() == 0x7F) return false;
        auto code = static_cast<grumbo::Integer>(text[0].unicode());
        (form_.*handler_)(code);
        return code == 0;
    }

  private:
    frmGrumbo& form_;
    Handler handler_;
};

// Turns a left-button release over a visible selector into its click.
class SelectorClicks : public QObject {
  public:
    SelectorClicks(QObject* parent, frmGrumbo& form) : QObject(parent), form_(form) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::MouseButtonRelease)
            return QObject::eventFilter(watched, event);
        auto* mouse = static_cast<QMouseEvent*>(event);
        for (int k = 0; k < 4; ++k) {
            ui::PictureBox* icon = form_.picSelect[k];
            if (icon != watched) continue;
            // Events can be sent to a hidden widget directly; a hidden selector still isn't there.
            if (mouse->button() == Qt::LeftButton && icon->isVisible() &&
                icon->rect().contains(mouse->position().toPoint()))
                form_.picSelect_Click(static_cast<grumbo::Integer>(k));
            return true;
        }
        return false;
    }

  private:
    frmGrumbo& form_;
};

}  // namespace

void frmGrumbo::ConnectFlightHandlers() {
    tmrMain.SetHandler([this] { tmrMain_Timer(); });
    tmrCollision.SetHandler([this] { tmrCollision_Timer(); });
    tmrTrap.SetHandler([this] { tmrTrap_Timer(); });

    txtAngle->installEventFilter(new KeyFilter(txtAngle, *this, &frmGrumbo::txtAngle_KeyPress));
    txtVel->installEventFilter(new KeyFilter(txtVel, *this, &frmGrumbo::txtVel_KeyPress));
    QObject::connect(txtAngle, &QLineEdit::textChanged, txtAngle, [this] { txtAngle_Change(); });
    QObject::connect(txtVel, &QLineEdit::textChanged, txtVel, [this] { txtVel_Change(); });
    QObject::connect(cmdThrow, &QPushButton::clicked, cmdThrow, [this] { cmdThrow_Click(); });

    auto* clicks = new SelectorClicks(picUI, *this);
    for (ui::PictureBox* icon : picSelect) icon->installEventFilter(clicks);
}
