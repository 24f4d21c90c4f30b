#include "ui/ScreenLook.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include "ui/Surface.h"

namespace ui {

Qt::WindowFlags FrontEndFlags() {
    return Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
}

namespace {
std::int32_t PaletteColour(const char* widgetClass, QPalette::ColorRole role) {
    return FromQRgb(QApplication::palette(widgetClass).color(role).rgb());
}
}  // namespace

std::int32_t MenuColour() { return PaletteColour("QMenu", QPalette::Window); }
std::int32_t WindowColour() { return PaletteColour("QWidget", QPalette::Window); }
std::int32_t ButtonFaceColour() { return PaletteColour("QPushButton", QPalette::Button); }

void SetBackColour(QWidget* widget, std::int32_t colour) {
    QPalette p = widget->palette();
    const QColor c = QColor::fromRgb(ToQRgb(colour));
    p.setColor(QPalette::Window, c);
    p.setColor(QPalette::Base, c);
    widget->setPalette(p);
    widget->setAutoFillBackground(true);
}

}  // namespace ui
