#include "board-simulator/source/samples.h"

#include "board-simulator/source/camera.h"
#include "board-simulator/source/sample-texts.h"

namespace board
{

namespace
{

/// The scene as a sensor of 10 bits would give it.
std::string picture()
{
    Camera camera;
    camera.exposureSet(1, 0.02, {});
    std::string text = "P5\n" + std::to_string(Camera::width) + " " + std::to_string(Camera::height) + "\n1023\n";
    for (int y = 0; y < Camera::height; ++y)
    {
        for (int x = 0; x < Camera::width; ++x)
        {
            const int value = camera.pixel(x, y) * 4;
            text += static_cast<char>(value >> 8);
            text += static_cast<char>(value);
        }
    }
    return text;
}

} // namespace

void samplesWrite(const Files& files)
{
    files.write("sensor-main.drv", "sensor-main\n");
    files.write("sensor-tele.drv", "sensor-tele\n");
    files.write("chart.pgm", picture());
    files.write("calibration.xml", calibrationText());
    files.write("3aconfig.json", threeAText());
}

} // namespace board
