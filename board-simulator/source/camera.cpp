#include "board-simulator/source/camera.h"

#include <algorithm>
#include <cmath>

namespace board
{

namespace
{

// The product of gain and integration time at which a scene value of 1 is just white.
constexpr double exposureWhite = 0.04;
constexpr double rounding = 1e-9;

bool isObject(double x, double y) { return std::hypot(x - 0.62, (y - 0.45) * 0.7) < 0.14; }

bool isBox(double x, double y) { return x > 0.12 && x < 0.34 && y > 0.48 && y < 0.86; }

bool isLamp(double x, double y) { return std::hypot(x - 0.15, y - 0.15) < 0.05; }

/// Radiance at a place of the unit square: a sloping background, a lamp, a bright object and a dark box.
double radiance(double x, double y)
{
    if (isObject(x, y))
        return 0.75 + 0.15 * std::sin(40 * x);
    if (isBox(x, y))
        return 0.06 + 0.04 * y;
    if (isLamp(x, y))
        return 1.6;
    return 0.12 + 0.35 * x + 0.1 * (1 - y);
}

/// Colours of luminance 1: an orange object, a green box, a white lamp, a bluish background.
Camera::Colour tint(double x, double y)
{
    if (isObject(x, y))
        return {1.6, 0.84, 0.25};
    if (isBox(x, y))
        return {0.5, 1.35, 0.51};
    return isLamp(x, y) ? Camera::Colour{1, 1, 1} : Camera::Colour{0.8, 1.02, 1.42};
}

int cellOf(int x, int y) { return y * Camera::grid / Camera::height * Camera::grid + x * Camera::grid / Camera::width; }

} // namespace

Camera::Camera()
{
    scene.reserve(width * height);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const double u = (x + 0.5) / width;
            const double v = (y + 0.5) / height;
            scene.push_back(static_cast<float>(radiance(u, v)));
            if (isObject(u, v))
                object[static_cast<size_t>(cellOf(x, y))] = 1;
        }
    }
}

void Camera::exposureSet(double gain, double integrationTime, const SensorRange& range)
{
    if (std::isfinite(gain))
        gainNow = std::clamp(gain, range.gainMin, range.gainMax);
    if (std::isfinite(integrationTime))
        timeNow = std::clamp(integrationTime, range.timeMin, range.timeMax);
}

bool Camera::step(const ExposureTarget& target, const SensorRange& range)
{
    if (!target.isAuto || isTestPattern || !std::isfinite(target.setPoint) || !(target.tolerance >= 0) ||
        std::isnan(target.dampingOver) || std::isnan(target.dampingUnder))
        return false;
    const double seen = mean(target.region);
    const double wanted = std::clamp(target.setPoint, 0.5, 254.0);
    const double damping = std::clamp(seen > wanted ? target.dampingOver : target.dampingUnder, 0.0, 1.0);
    const bool isNear = std::abs(seen - wanted) <= target.tolerance;
    // Highlights are cut off, so one step is never more than a factor of 4.
    const double ratio = isNear ? 1 : std::clamp(wanted / std::max(seen, 0.5), 0.25, 4.0);
    const double exposure = gainNow * timeNow * std::pow(ratio, 1 - damping);

    // The time is used up before the gain, since gain brings noise.
    double time = std::clamp(exposure / range.gainMin, range.timeMin, range.timeMax);
    if (target.flickerPeriod > 0 && time >= target.flickerPeriod)
        time = std::floor(time / target.flickerPeriod + rounding) * target.flickerPeriod;
    const double gainBefore = gainNow;
    const double timeBefore = timeNow;
    exposureSet(exposure / time, time, range);
    return std::abs(gainNow / gainBefore - 1) > rounding || std::abs(timeNow / timeBefore - 1) > rounding;
}

Camera::Colour Camera::signal(double x, double y) const
{
    if (isTestPattern)
    {
        const double bar = std::floor(x * 8) / 7;
        return {bar, bar, bar};
    }
    const double value = radiance(x, y) * gainNow * timeNow / exposureWhite;
    const Colour colour = tint(x, y);
    return {std::min(value * colour.red, 1.0), std::min(value * colour.green, 1.0), std::min(value * colour.blue, 1.0)};
}

uint8_t Camera::pixel(int x, int y) const
{
    if (isTestPattern)
        return static_cast<uint8_t>(x * 8 / width * 255 / 7);
    const double value = scene[static_cast<size_t>(y * width + x)] * gainNow * timeNow * (255 / exposureWhite);
    return static_cast<uint8_t>(std::min(value, 255.0));
}

Camera::Histogram Camera::histogram() const
{
    Histogram histogram{};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ++histogram[pixel(x, y)];
    return histogram;
}

Camera::Grid Camera::luminance() const
{
    std::array<uint32_t, grid * grid> sums{};
    std::array<uint32_t, grid * grid> counts{};
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            const auto cell = static_cast<size_t>(cellOf(x, y));
            sums[cell] += pixel(x, y);
            ++counts[cell];
        }
    }
    Grid luminance{};
    for (size_t cell = 0; cell < luminance.size(); ++cell)
        luminance[cell] = static_cast<uint8_t>((sums[cell] + counts[cell] / 2) / counts[cell]);
    return luminance;
}

bool Camera::counts(ExposureTarget::Region region, int cell) const
{
    const int column = cell % grid;
    const int row = cell / grid;
    switch (region)
    {
    case ExposureTarget::Middle:
        return column > 0 && column < grid - 1 && row > 0 && row < grid - 1;
    case ExposureTarget::Object:
        return object[static_cast<size_t>(cell)] != 0;
    default:
        return true;
    }
}

double Camera::mean(ExposureTarget::Region region) const
{
    const Grid cells = luminance();
    double sum = 0;
    int count = 0;
    for (int cell = 0; cell < grid * grid; ++cell)
    {
        if (counts(region, cell))
        {
            sum += cells[static_cast<size_t>(cell)];
            ++count;
        }
    }
    return sum / count;
}

} // namespace board
