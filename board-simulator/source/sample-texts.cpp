#include "board-simulator/source/sample-texts.h"

#include <cmath>

namespace board
{

namespace
{

/// An XML text in the making, indented by two blanks.
class Writer
{
public:
    void open(const std::string& name, const std::string& attributes = {})
    {
        line("<" + tag(name, attributes) + ">");
        depth += 2;
    }

    void leaf(const std::string& name, const std::string& content, const std::string& attributes = {})
    {
        line("<" + tag(name, attributes) + ">" + content + "</" + name + ">");
    }

    void close(const std::string& name)
    {
        depth -= 2;
        line("</" + name + ">");
    }

    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

private:
    static std::string tag(const std::string& name, const std::string& attributes)
    {
        return attributes.empty() ? name : name + " " + attributes;
    }

    void line(const std::string& content) { text += std::string(depth, ' ') + content + "\n"; }

    size_t depth = 0;
};

std::string attribute(const char* pName, int value) { return pName + ("=\"" + std::to_string(value)) + "\""; }

std::string size(int count) { return attribute("size", count); }

void gridAdd(Writer& writer, const char* pChannel, double strength)
{
    const int cells = 17;
    std::string values;
    for (int y = 0; y < cells; ++y)
    {
        for (int x = 0; x < cells; ++x)
        {
            const double distance = std::hypot(x - cells / 2, y - cells / 2) / cells;
            values += (values.empty() ? "" : " ") + std::to_string(int(1024 * (1 + strength * distance * distance)));
        }
    }
    writer.leaf("samples", values, std::string("channel=\"") + pChannel + "\" " + size(cells * cells));
}

} // namespace

std::string calibrationText()
{
    Writer writer;
    writer.open("calibration", "version=\"4.3\"");
    writer.open("sensor", "name=\"sensor-main\" width=\"1920\" height=\"1080\"");
    writer.leaf("resolution", "1920x1080");
    writer.leaf("bayer", "RGGB");
    writer.leaf("black", "64 64 64 64", size(4));
    writer.close("sensor");
    for (const char* pLight : {"A", "D50", "D65", "D75", "F2", "F11"})
    {
        writer.open("illumination", std::string("name=\"") + pLight + "\"");
        writer.open("awb");
        writer.leaf("gains", "1.72 1.0 1.0 2.05", size(4));
        writer.leaf("matrix", "1.62 -0.47 -0.15 -0.31 1.58 -0.27 -0.02 -0.55 1.57", size(9));
        writer.leaf("offset", "0 0 0", size(3));
        writer.close("awb");
        writer.open("lsc");
        gridAdd(writer, "red", 1.9);
        gridAdd(writer, "greenR", 1.6);
        gridAdd(writer, "greenB", 1.6);
        gridAdd(writer, "blue", 1.7);
        writer.close("lsc");
        writer.close("illumination");
    }
    for (const char* pModule : {"dpf", "cnr", "dnr2", "dnr3", "ee", "wdr"})
    {
        writer.open(pModule);
        for (int step = 0; step < 8; ++step)
        {
            writer.open("level", attribute("gain", 1 << step));
            writer.leaf("strength", std::to_string(8 + 12 * step));
            writer.leaf("sigma", std::to_string(2 + step));
            writer.leaf("enable", step > 0 ? "true" : "false");
            writer.close("level");
        }
        writer.close(pModule);
    }
    writer.close("calibration");
    return writer.text;
}

std::string threeAText()
{
    return R"({
    "version": "1.2.0",
    "ae": {
        "enable": true,
        "set.point": 55.0,
        "tolerance": 0.1,
        "damping": { "over": 0.25, "under": 0.1 },
        "route": [
            { "gain": 1.0, "time": 0.01 },
            { "gain": 4.0, "time": 0.02 },
            { "gain": 16.0, "time": 0.04 }
        ],
        "weights": [1, 1, 1, 1, 1, 1, 2, 2, 2, 1, 1, 2, 4, 2, 1, 1, 2, 2, 2, 1, 1, 1, 1, 1, 1]
    },
    "awb": {
        "enable": true,
        "mode": "auto",
        "range": { "min": 2300, "max": 7500 },
        "speed": 0.4,
        "lights": ["A", "D50", "D65", "F11"]
    },
    "af": {
        "enable": false,
        "motor": null,
        "window": [810, 390, 300, 300],
        "serial": 9007199254740993
    }
}
)";
}

} // namespace board
