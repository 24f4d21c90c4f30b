#include "net/JoinCode.h"

namespace net {

namespace {
constexpr int kWordsInCode = 3;

QString tidy(const QString& code) { return code.simplified().toLower(); }
}  // namespace

const QStringList& joinWords() {
    // 64 words: 262144 codes, enough that a guess at a friend's match hardly ever hits.
    static const QStringList words = {
        QStringLiteral("acorn"),   QStringLiteral("amber"),  QStringLiteral("anchor"),
        QStringLiteral("apple"),   QStringLiteral("badger"), QStringLiteral("banjo"),
        QStringLiteral("barrel"),  QStringLiteral("beacon"), QStringLiteral("bishop"),
        QStringLiteral("blue"),    QStringLiteral("brick"),  QStringLiteral("bucket"),
        QStringLiteral("cactus"),  QStringLiteral("candle"), QStringLiteral("castle"),
        QStringLiteral("cherry"),  QStringLiteral("cloud"),  QStringLiteral("copper"),
        QStringLiteral("daisy"),   QStringLiteral("dragon"), QStringLiteral("drum"),
        QStringLiteral("eagle"),   QStringLiteral("ember"),  QStringLiteral("falcon"),
        QStringLiteral("feather"), QStringLiteral("fig"),    QStringLiteral("forest"),
        QStringLiteral("garden"),  QStringLiteral("ginger"), QStringLiteral("goose"),
        QStringLiteral("harbor"),  QStringLiteral("hazel"),  QStringLiteral("honey"),
        QStringLiteral("igloo"),   QStringLiteral("island"), QStringLiteral("jelly"),
        QStringLiteral("jungle"),  QStringLiteral("kettle"), QStringLiteral("kite"),
        QStringLiteral("lantern"), QStringLiteral("lemon"),  QStringLiteral("lizard"),
        QStringLiteral("maple"),   QStringLiteral("meadow"), QStringLiteral("mitten"),
        QStringLiteral("nutmeg"),  QStringLiteral("oyster"), QStringLiteral("otter"),
        QStringLiteral("pepper"),  QStringLiteral("pillow"), QStringLiteral("pirate"),
        QStringLiteral("quartz"),  QStringLiteral("rabbit"), QStringLiteral("river"),
        QStringLiteral("rocket"),  QStringLiteral("saddle"), QStringLiteral("tiger"),
        QStringLiteral("tulip"),   QStringLiteral("velvet"), QStringLiteral("walnut"),
        QStringLiteral("willow"),  QStringLiteral("yellow"), QStringLiteral("zebra"),
        QStringLiteral("zigzag"),
    };
    return words;
}

QString makeJoinCode(QRandomGenerator& random) {
    QStringList code;
    for (int i = 0; i < kWordsInCode; ++i)
        code << joinWords()[static_cast<qsizetype>(random.bounded(joinWords().size()))];
    return code.join(QLatin1Char(' '));
}

bool sameJoinCode(const QString& a, const QString& b) {
    const QString tidyA = tidy(a);
    return !tidyA.isEmpty() && tidyA == tidy(b);
}

}  // namespace net
