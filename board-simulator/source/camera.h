#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace board
{

/// What the sensor can do.
struct SensorRange
{
    double gainMin = 1;
    double gainMax = 16;
    /// In seconds.
    double timeMin = 0.0001;
    double timeMax = 0.0333;
};

/// What the exposure loop has to do.
struct ExposureTarget
{
    bool isAuto = false;
    /// Mean luminance, 0 to 255, and how far from it is near enough.
    double setPoint = 0;
    double tolerance = 0;
    /// 0 steps to the target at once, 1 not at all.
    double dampingOver = 0;
    double dampingUnder = 0;
    /// The part of the picture that counts: all of it, its middle, or the object.
    enum Region
    {
        Whole = 0,
        Middle = 1,
        Object = 2
    } region = Whole;
    /// Seconds; integration times are multiples of it. 0 for any time.
    double flickerPeriod = 0;
};

/// A synthetic scene, seen by a sensor whose brightness follows gain times integration time.
class Camera
{
public:
    static constexpr int width = 100;
    static constexpr int height = 60;
    static constexpr int grid = 5;
    using Grid = std::array<uint8_t, grid * grid>;
    using Histogram = std::array<uint32_t, 256>;

    Camera();

    double gain() const { return gainNow; }
    double integrationTime() const { return timeNow; }
    /// Takes the nearest values that the sensor can do. What is not finite leaves the present value.
    void exposureSet(double gain, double integrationTime, const SensorRange& range);
    /// One frame of the exposure loop. False if there was nothing to change.
    bool step(const ExposureTarget& target, const SensorRange& range);

    bool isTestPattern = false;

    struct Colour
    {
        double red;
        double green;
        double blue;
    };
    /// What the sensor sees at a place of the unit square, 0 to 1 and white.
    Colour signal(double x, double y) const;
    /// Luminance of a pixel, 0 to 255.
    uint8_t pixel(int x, int y) const;
    Histogram histogram() const;
    /// Mean luminance of 5 by 5 cells, in reading order.
    Grid luminance() const;
    /// 1 for the cells that the object covers.
    const Grid& objectRegion() const { return object; }

private:
    double mean(ExposureTarget::Region region) const;
    bool counts(ExposureTarget::Region region, int cell) const;

    std::vector<float> scene;
    Grid object{};
    double gainNow = 1;
    double timeNow = 0.002;
};

} // namespace board
