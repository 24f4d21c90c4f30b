#include "ui/Fonts.h"

#include <QFontDatabase>
#include <QStringList>

namespace ui {

QFont tahoma(int pixelSize, bool bold) {
    static const QString family = [] {
        for (const char* path :
             {"/usr/share/wine/fonts/tahoma.ttf", "/usr/share/fonts/truetype/wine/tahoma.ttf"}) {
            const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(path));
            if (id < 0) continue;
            const QStringList families = QFontDatabase::applicationFontFamilies(id);
            if (!families.isEmpty()) return families.first();
        }
        return QStringLiteral("Sans Serif");
    }();
    QFont f(family);
    f.setPixelSize(pixelSize);
    f.setBold(bold);
    return f;
}

}  // namespace ui
