#include "core/Numeric.h"

#include <cfenv>
#include <limits>

namespace grumbo {

namespace {
template <class T>
T Saturate(double r) {
    if (std::isnan(r)) return 0;
    if (r < std::numeric_limits<T>::min()) return std::numeric_limits<T>::min();
    if (r > std::numeric_limits<T>::max()) return std::numeric_limits<T>::max();
    return static_cast<T>(r);
}
// The default floating-point environment rounds to nearest with ties to even.
double NearestEven(double x) { return std::nearbyint(x); }
}  // namespace

Integer CInt(double x) { return Saturate<Integer>(NearestEven(x)); }
Long CLng(double x) { return Saturate<Long>(NearestEven(x)); }

double Round(double x, int digits) {
    const double scale = std::pow(10.0, digits);
    return NearestEven(x * scale) / scale;
}

double Val(const QString& text) {
    int i = 0;
    const int n = text.size();
    while (i < n && text[i].isSpace()) ++i;
    const int start = i;
    if (i < n && (text[i] == u'-' || text[i] == u'+')) ++i;
    while (i < n && text[i].isDigit() && text[i].unicode() < 128) ++i;
    if (i < n && text[i] == u'.') {
        ++i;
        while (i < n && text[i].isDigit() && text[i].unicode() < 128) ++i;
    }
    bool ok = false;
    const double v = text.mid(start, i - start).toDouble(&ok);
    return ok ? v : 0.0;
}

bool IsDigits(const QString& text) {
    if (text.isEmpty()) return false;
    for (QChar c : text)
        if (c < u'0' || c > u'9') return false;
    return true;
}

QString Str(double x) {
    if (x == 0) return QStringLiteral("0");
    return QString::number(x, 'g', 15);
}

}  // namespace grumbo
