#include "screens/Pictures.h"

#include <QFileInfo>

#include "ui/MessageBox.h"

namespace screens {

namespace {
constexpr QSize kCharacterStandIn{40, 60}, kMarkerStandIn{20, 24};

core::Canvas plainFigure(QSize size) {
    const int w = size.width(), h = size.height(), cx = w / 2;
    core::Canvas c(w, h);
    c.circle(cx, 8, 7, core::Colour(40, 40, 40), core::Colour(150, 150, 150));
    c.fillRect(cx - 8, 16, cx + 8, h - 20, core::Colour(110, 110, 110));
    c.fillRect(cx - 8, h - 19, cx - 3, h - 1, core::Colour(70, 70, 70));
    c.fillRect(cx + 3, h - 19, cx + 8, h - 1, core::Colour(70, 70, 70));
    return c;
}
}  // namespace

bool readPicture(const QString& path, const PictureKind& kind, QImage& image,
                 core::PictureError* error) {
    QImage read;
    if (!core::readBitmap(path, core::largestBitmapFile(kind.largest), read, error)) return false;
    const QSize size = read.size();
    if (size.boundedTo(kind.largest) != size || size.expandedTo(kind.smallest) != size) {
        if (error)
            *error = {false, QStringLiteral("%1 is %2 to %3 pixels wide and %4 to %5 pixels high, "
                                            "and this picture is %6 x %7")
                                 .arg(QLatin1String(kind.name))
                                 .arg(kind.smallest.width())
                                 .arg(kind.largest.width())
                                 .arg(kind.smallest.height())
                                 .arg(kind.largest.height())
                                 .arg(size.width())
                                 .arg(size.height())};
        return false;
    }
    image = read;
    return true;
}

game::CharacterArt Pictures::character(const QString& name) {
    const QString stem = QStringLiteral("characters/") + name;
    return {load(stem + QStringLiteral(".bmp"), kCharacterPicture, kCharacterStandIn),
            {load(stem + QStringLiteral("1.bmp"), kCharacterPicture, kCharacterStandIn),
             load(stem + QStringLiteral("2.bmp"), kCharacterPicture, kCharacterStandIn)}};
}

core::Canvas Pictures::marker() {
    return load(QStringLiteral("pIndication.bmp"), kMarkerPicture, kMarkerStandIn);
}

core::Canvas Pictures::load(const QString& relative, const PictureKind& kind, QSize standInSize) {
    const QString path = data_.path(relative);
    QImage image;
    core::PictureError why;
    if (!readPicture(path, kind, image, &why)) return standIn(path, why, standInSize);
    return core::Canvas(image);
}

core::Canvas Pictures::standIn(const QString& path, const core::PictureError& why, QSize size) {
    if (!reported_.contains(path)) {
        reported_.insert(path);
        const QString file = QFileInfo(path).absoluteFilePath();
        ui::showMessage(why.missing ? QStringLiteral("The picture \"%1\" is missing. A plain "
                                                     "figure stands in for it.")
                                          .arg(file)
                                    : QStringLiteral("The picture \"%1\" cannot be read: %2. A "
                                                     "plain figure stands in for it.")
                                          .arg(file, why.reason),
                        QStringLiteral("Grumbo"));
    }
    return plainFigure(size);
}

}  // namespace screens
