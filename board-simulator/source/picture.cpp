#include "board-simulator/source/picture.h"

#include <algorithm>
#include <cmath>

namespace board
{

namespace
{

enum Channel
{
    Red,
    Green,
    Blue
};

// Two rows of two.
constexpr Channel patterns[][4]{
    {Blue, Green, Green, Red}, {Green, Blue, Red, Green}, {Green, Red, Blue, Green}, {Red, Green, Green, Blue}};

double channel(const Camera::Colour& colour, Channel channel)
{
    return channel == Red ? colour.red : channel == Green ? colour.green : colour.blue;
}

char byte(double value) { return static_cast<char>(static_cast<uint8_t>(std::clamp(std::lround(value), 0l, 255l))); }

std::string head(const char* magic, int width, int height, int maximum)
{
    return std::string(magic) + "\n" + std::to_string(width) + " " + std::to_string(height) + "\n" +
           std::to_string(maximum) + "\n";
}

} // namespace

const char* Picture::suffix(Format format) { return format == Yuv ? ".yuv" : format == Rgb ? ".ppm" : ".pgm"; }

std::string Picture::file(Format format) const
{
    switch (format)
    {
    case Raw08:
        return raw(8);
    case Raw10:
        return raw(10);
    case Raw12:
        return raw(12);
    case Raw16:
        return raw(16);
    case Rgb:
        return rgb();
    default:
        return yuv();
    }
}

Camera::Colour Picture::at(int x, int y) const { return camera.signal((x + 0.5) / width, (y + 0.5) / height); }

std::string Picture::raw(int bits) const
{
    const int maximum = (1 << bits) - 1;
    const Channel* pPattern = patterns[std::clamp(bayerPattern, 0, 3)];
    std::string bytes = head("P5", width, height, maximum);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const long sample = std::lround(channel(at(x, y), pPattern[y % 2 * 2 + x % 2]) * maximum);
            if (bits > 8)
                bytes += static_cast<char>(sample >> 8);
            bytes += static_cast<char>(sample & 0xFF);
        }
    }
    return bytes;
}

std::string Picture::rgb() const
{
    std::string bytes = head("P6", width, height, 255);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const Camera::Colour colour = at(x, y);
            bytes += {byte(colour.red * 255), byte(colour.green * 255), byte(colour.blue * 255)};
        }
    }
    return bytes;
}

std::string Picture::yuv() const
{
    const auto count = static_cast<size_t>(width) * static_cast<size_t>(height);
    std::string bytes;
    std::string chroma;
    bytes.reserve(2 * count);
    for (int y = 0; y < height; ++y)
    {
        Camera::Colour left{};
        for (int x = 0; x < width; ++x)
        {
            const Camera::Colour colour = at(x, y);
            bytes += byte((0.299 * colour.red + 0.587 * colour.green + 0.114 * colour.blue) * 255);
            if (x % 2 == 0)
            {
                left = colour;
                continue;
            }
            const double red = (left.red + colour.red) * 255 / 2;
            const double green = (left.green + colour.green) * 255 / 2;
            const double blue = (left.blue + colour.blue) * 255 / 2;
            const double luma = 0.299 * red + 0.587 * green + 0.114 * blue;
            chroma += byte(128 + (blue - luma) * 256 / 455);
            chroma += byte(128 + (red - luma) * 256 / 360);
        }
    }
    bytes += chroma;
    // An odd width has no pair for its last column.
    bytes.resize(2 * count, '\0');
    return bytes;
}

} // namespace board
