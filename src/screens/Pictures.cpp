#include "screens/Pictures.h"

#include <QFileInfo>

#include "core/Bitmap.h"
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

game::CharacterArt Pictures::character(const QString& name) {
    const QString stem = QStringLiteral("characters/") + name;
    return {load(stem + QStringLiteral(".bmp"), true, kCharacterStandIn),
            {load(stem + QStringLiteral("1.bmp"), true, kCharacterStandIn),
             load(stem + QStringLiteral("2.bmp"), true, kCharacterStandIn)}};
}

core::Canvas Pictures::marker() {
    return load(QStringLiteral("pIndication.bmp"), false, kMarkerStandIn);
}

core::Canvas Pictures::load(const QString& relative, bool character, QSize standInSize) {
    const QString path = data_.path(relative);
    QImage image;
    core::PictureError why;
    if (!core::readBitmap(path, image, &why))
        return standIn(path, why.missing, why.reason, standInSize);
    if (character && !game::fitsCharacterLimits(image.width(), image.height()))
        return standIn(path, false,
                       QStringLiteral("a character is %1 to %2 pixels wide and %3 to %4 pixels "
                                      "high, and this picture is %5 x %6")
                           .arg(game::kSmallestCharacter.width())
                           .arg(game::kLargestCharacter.width())
                           .arg(game::kSmallestCharacter.height())
                           .arg(game::kLargestCharacter.height())
                           .arg(image.width())
                           .arg(image.height()),
                       standInSize);
    return core::Canvas(image);
}

core::Canvas Pictures::standIn(const QString& path, bool missing, const QString& reason,
                               QSize size) {
    if (!reported_.contains(path)) {
        reported_.insert(path);
        const QString file = QFileInfo(path).absoluteFilePath();
        ui::showMessage(missing ? QStringLiteral("The picture \"%1\" is missing. A plain figure "
                                                 "stands in for it.")
                                      .arg(file)
                                : QStringLiteral("The picture \"%1\" cannot be read: %2. A plain "
                                                 "figure stands in for it.")
                                      .arg(file, reason),
                        QStringLiteral("Grumbo"));
    }
    return plainFigure(size);
}

}  // namespace screens
