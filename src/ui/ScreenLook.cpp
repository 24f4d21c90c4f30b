#include "ui/ScreenLook.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

namespace ui {

Qt::WindowFlags frontEndFlags() {
    return Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
}

namespace {
core::Colour paletteColour(const char* widgetClass, QPalette::ColorRole role) {
    return core::Colour::fromRgb(QApplication::palette(widgetClass).color(role).rgb());
}
}  // namespace

core::Colour menuColour() { return paletteColour("QMenu", QPalette::Window); }
core::Colour windowColour() { return paletteColour("QWidget", QPalette::Window); }
core::Colour buttonFaceColour() { return paletteColour("QPushButton", QPalette::Button); }

void setBackColour(QWidget* widget, core::Colour colour) {
    QPalette p = widget->palette();
    const QColor c = QColor::fromRgb(colour.rgb());
    p.setColor(QPalette::Window, c);
    p.setColor(QPalette::Base, c);
    widget->setPalette(p);
    widget->setAutoFillBackground(true);
}

}  // namespace ui
