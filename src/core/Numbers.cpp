#include "core/Numbers.h"

#include <cmath>
#include <limits>

namespace core {

int roundHalfEven(double x) {
    // The default floating-point environment rounds to nearest with ties to even.
    const double r = std::nearbyint(x);
    if (std::isnan(r)) return 0;
    if (r < std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
    if (r > std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
    return static_cast<int>(r);
}

double roundDecimals(double x, int digits) {
    const double scale = std::pow(10.0, digits);
    return std::nearbyint(x * scale) / scale;
}

double leadingNumber(const QString& text) {
    const auto digit = [&](int i) { return text[i] >= u'0' && text[i] <= u'9'; };
    const int n = text.size();
    int i = 0;
    while (i < n && text[i].isSpace()) ++i;
    const int start = i;
    if (i < n && (text[i] == u'-' || text[i] == u'+')) ++i;
    while (i < n && digit(i)) ++i;
    if (i < n && text[i] == u'.') {
        ++i;
        while (i < n && digit(i)) ++i;
    }
    bool ok = false;
    const double v = text.mid(start, i - start).toDouble(&ok);
    return ok ? v : 0.0;
}

bool isDigits(const QString& text) {
    if (text.isEmpty()) return false;
    for (QChar c : text)
        if (c < u'0' || c > u'9') return false;
    return true;
}

QString numberText(double x) {
    if (x == 0) return QStringLiteral("0");
    return QString::number(x, 'g', 15);
}

}  // namespace core
