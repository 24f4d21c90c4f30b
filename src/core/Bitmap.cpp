#include "core/Bitmap.h"

#include <cstdint>
#include <cstdlib>

#include "core/DataFile.h"

namespace core {

namespace {

constexpr qint64 kFileHeader = 14;

// The versions of the info header that all begin with the same 40 bytes.
bool knownInfoHeader(std::uint32_t size) {
    return size == 40 || size == 52 || size == 56 || size == 108 || size == 124;
}

bool knownDepth(std::uint32_t bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

bool refuse(PictureError* error, bool missing, const QString& reason) {
    if (error) *error = PictureError{missing, reason};
    return false;
}

// The file's bytes, read little-endian at offsets the caller has checked against the length.
class Bytes {
public:
    explicit Bytes(const QByteArray& data)
        : data_(reinterpret_cast<const uchar*>(data.constData())), size_(data.size()) {}
    qint64 size() const { return size_; }
    const uchar* at(qint64 offset) const { return data_ + offset; }
    std::uint32_t u(qint64 offset, int count) const {
        std::uint32_t v = 0;
        for (int i = count - 1; i >= 0; --i) v = (v << 8) | data_[offset + i];
        return v;
    }
    std::int32_t i32(qint64 offset) const { return static_cast<std::int32_t>(u(offset, 4)); }

private:
    const uchar* data_;
    qint64 size_;
};

}  // namespace

bool readBitmap(const QString& path, qint64 largestFile, QImage& image, PictureError* error) {
    const QString cutShort = QStringLiteral("the file is cut short");
    FileError why;
    const std::optional<QByteArray> data = readDataFile(path, largestFile, &why);
    if (!data)
        return refuse(error, why.missing,
                      why.missing ? QStringLiteral("there is no such file") : why.reason);
    const Bytes b(*data);

    if (b.size() < 2 || b.u(0, 2) != 0x4D42)
        return refuse(error, false, QStringLiteral("it is not a Windows bitmap"));
    if (b.size() < kFileHeader + 40) return refuse(error, false, cutShort);
    const std::uint32_t declaredLength = b.u(2, 4);
    const std::uint32_t pixelsAt = b.u(10, 4);
    const std::uint32_t infoSize = b.u(14, 4);
    if (!knownInfoHeader(infoSize))
        return refuse(error, false,
                      QStringLiteral("its header is of a kind the game does not read"));
    if (declaredLength > b.size() || kFileHeader + infoSize > b.size())
        return refuse(error, false, cutShort);

    const std::int32_t width = b.i32(18), height = b.i32(22);
    const qint64 rows = std::llabs(static_cast<qint64>(height));
    if (width <= 0 || width > kMaxPictureSide || rows == 0 || rows > kMaxPictureSide)
        return refuse(
            error, false,
            QStringLiteral("its header gives it a size of %1 x %2 pixels").arg(width).arg(height));
    const std::uint32_t planes = b.u(26, 2), bits = b.u(28, 2), compression = b.u(30, 4);
    if (planes != 1 || !knownDepth(bits) || compression != 0)
        return refuse(error, false,
                      QStringLiteral("it stores its pixels in a way the game does not read "
                                     "(%1 bits a pixel, compression %2)")
                          .arg(bits)
                          .arg(compression));

    const qint64 paletteAt = kFileHeader + infoSize;
    qint64 colours = 0;
    if (bits <= 8) {
        const std::uint32_t used = b.u(46, 4);
        colours = used != 0 ? used : qint64{1} << bits;
        if (colours > qint64{1} << bits)
            return refuse(error, false, QStringLiteral("its colour table is broken"));
    }
    if (pixelsAt < paletteAt + colours * 4)
        return refuse(error, false, QStringLiteral("its pixel data overlaps its header"));
    const qint64 stride = (qint64{width} * bits + 31) / 32 * 4;
    if (pixelsAt + stride * rows > b.size()) return refuse(error, false, cutShort);

    QImage out(width, static_cast<int>(rows), QImage::Format_RGB32);
    if (out.isNull()) return refuse(error, false, QStringLiteral("it does not fit in memory"));
    const uchar* palette = b.at(paletteAt);
    const std::uint32_t mask = (1u << (bits <= 8 ? bits : 0)) - 1;
    for (qint64 row = 0; row < rows; ++row) {
        const uchar* src = b.at(pixelsAt + row * stride);
        // Rows are stored bottom-up unless the height is negative.
        const int y = static_cast<int>(height > 0 ? rows - 1 - row : row);
        auto* dst = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < width; ++x) {
            if (bits >= 24) {
                const uchar* p = src + static_cast<qint64>(x) * (bits / 8);
                dst[x] = qRgb(p[2], p[1], p[0]);
                continue;
            }
            const qint64 bit = static_cast<qint64>(x) * bits;
            const std::uint32_t index = (src[bit / 8] >> (8 - bits - bit % 8)) & mask;
            if (index >= colours)
                return refuse(error, false,
                              QStringLiteral("its pixels use colours its colour table lacks"));
            const uchar* c = palette + index * 4;
            dst[x] = qRgb(c[2], c[1], c[0]);
        }
    }
    image = out;
    return true;
}

}  // namespace core
