#pragma once
// A 24-bit colour, stored as red + 256 x green + 65536 x blue, or no colour at all: what a canvas
// answers for a point outside it. Collision by colour compares these values directly.
#include <QRgb>
#include <cstdint>

namespace core {

class Colour {
public:
    // No colour.
    constexpr Colour() = default;
    constexpr Colour(int red, int green, int blue) : value_(red + 256 * green + 65536 * blue) {}
    static constexpr Colour fromValue(std::int32_t value) {
        Colour c;
        c.value_ = value;
        return c;
    }
    static constexpr Colour fromRgb(QRgb rgb) { return {qRed(rgb), qGreen(rgb), qBlue(rgb)}; }

    constexpr bool isNone() const { return value_ == -1; }
    constexpr std::int32_t value() const { return value_; }
    // The parts of the stored value; no colour reads as 255 in every part.
    constexpr int red() const { return value_ & 0xFF; }
    constexpr int green() const { return (value_ >> 8) & 0xFF; }
    constexpr int blue() const { return (value_ >> 16) & 0xFF; }
    constexpr QRgb rgb() const { return qRgb(red(), green(), blue()); }

    constexpr bool operator==(const Colour&) const = default;

private:
    std::int32_t value_ = -1;
};

// Pure white: the see-through colour of every picture.
constexpr Colour kWhite{255, 255, 255};
constexpr Colour kBlack{0, 0, 0};

}  // namespace core
