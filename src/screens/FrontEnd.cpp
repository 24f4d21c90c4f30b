#include "screens/FrontEnd.h"

#include <QLineEdit>

#include "ui/Fonts.h"
#include "ui/ScreenLook.h"

namespace screens {

QString gameTitle() { return QStringLiteral("Grumbo 2 - Kravenmoor"); }

void prepareWindow(QWidget* window, core::Colour background) {
    window->setFont(ui::tahoma(ui::kSmallText));
    ui::setBackColour(window, background);
}

QLineEdit* makeDisplayBox(QWidget* parent, int left, int top, int width, int height,
                          const QString& text) {
    auto* box = new QLineEdit(text, parent);
    box->setGeometry(left, top, width, height);
    // Read-only rather than disabled, so the value stays in plain black and easy to read.
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAttribute(Qt::WA_TransparentForMouseEvents);
    box->setTextMargins(0, 0, 0, 0);
    return box;
}

}  // namespace screens
