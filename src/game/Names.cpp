#include "game/Names.h"

#include <QTextBoundaryFinder>

namespace game {

namespace {
bool breaksALine(QChar c) {
    // Tab, newline, Escape, Delete and their kin, and the separators that start a new line.
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}
}  // namespace

QString tidyName(const QString& typed) {
    QString name;
    for (QChar c : typed)
        if (!breaksALine(c)) name += c;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, name);
    for (int n = 0; n < kNameLength; ++n)
        if (characters.toNextBoundary() < 0) return name;
    return name.left(characters.position());
}

}  // namespace game
