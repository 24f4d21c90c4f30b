#pragma once
// The code a host reads out to those who join him: three easy words, such as "otter lamp brave".
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

namespace net {

// The words a code is made of: short, plain, none a prefix or a near twin of another.
const QStringList& joinWords();
// Three words, drawn from `random`.
QString makeJoinCode(QRandomGenerator& random);
// The same code however it was typed: in capitals or not, with extra spaces around or between
// the words. No code matches an empty one.
bool sameJoinCode(const QString& a, const QString& b);

}  // namespace net
