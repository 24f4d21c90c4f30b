#include "ui/Labels.h"

#include <QLabel>

#include "ui/Fonts.h"

namespace ui {

QLabel* makeLabel(QWidget* parent, int left, int top, int width, int height, const QString& text,
                  Qt::Alignment align) {
    auto* l = new QLabel(text, parent);
    l->setGeometry(left, top, width, height);
    l->setAlignment(align);
    l->setFont(tahoma(kSmallText));
    return l;
}

}  // namespace ui
