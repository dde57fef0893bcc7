#pragma once

#include "tuning-rest/source/abstract.h"

namespace rest
{
/// The image sensor, its driver and its registers.
class Sensor : public Abstract
{
public:
    struct Config
    {
        enum BayerPattern : uint32_t
        {
            Bggr = 0,
            Gbrg = 1,
            Grbg = 2,
            Rggb = 3,
            Sum = 4
        };

        struct Exposure
        {
            float gain;
            float integrationTime; ///< seconds
        };

        struct Resolution
        {
            uint32_t height;
            uint32_t width;
        };

        BayerPattern bayerPattern;
        int32_t framesPerSecond;
        Flag isTestPattern;
        uint8_t padding[3];
        Exposure _long;
        Exposure _short;
        Exposure veryShort;
        Resolution resolution;
    };

    struct Status
    {
        struct Range
        {
            float max;
            float min;
            float step;
        };

        struct ResolutionCollection
        {
            int32_t index;
            Config::Resolution resolution;
        };

        char driverName[30]; ///< without a terminator when all 30 bytes are used
        Flag isConnected;
        uint8_t padding;
        Range gain;
        Range integrationTime; ///< seconds
        ResolutionCollection resolutionCollection;
    };

    Sensor& configGet(Config& config);
    Sensor& configSet(const Config& config);

    Sensor& driverChange(const std::string& driverFileName);
    /// The same with the answer going to `fComplete`, on a worker thread, while this call waits.
    Sensor& driverChange(const std::string& driverFileName, const std::function<void(const Json::Value&)>& fComplete);

    /// Has the board dump the sensor's registers into a file and fetches it into the current directory, under the name
    /// part of `path`. An empty `path` becomes "dump_sensor_register.txt".
    Sensor& registerDump2File(std::string& path);

    Sensor& registerGet(uint32_t address, uint32_t& value);
    Sensor& registerSet(uint32_t address, uint32_t value);
    Sensor& statusGet(Status& status);
};

RECORD_SIZE(Sensor::Config, 44);
RECORD_FIELD(Sensor::Config, bayerPattern, 0);
RECORD_FIELD(Sensor::Config, framesPerSecond, 4);
RECORD_FIELD(Sensor::Config, isTestPattern, 8);
RECORD_FIELD(Sensor::Config, _long.gain, 12);
RECORD_FIELD(Sensor::Config, _long.integrationTime, 16);
RECORD_FIELD(Sensor::Config, _short.gain, 20);
RECORD_FIELD(Sensor::Config, _short.integrationTime, 24);
RECORD_FIELD(Sensor::Config, veryShort.gain, 28);
RECORD_FIELD(Sensor::Config, veryShort.integrationTime, 32);
RECORD_FIELD(Sensor::Config, resolution.height, 36);
RECORD_FIELD(Sensor::Config, resolution.width, 40);

RECORD_SIZE(Sensor::Status, 68);
RECORD_FIELD(Sensor::Status, driverName, 0);
RECORD_FIELD(Sensor::Status, isConnected, 30);
RECORD_FIELD(Sensor::Status, gain.max, 32);
RECORD_FIELD(Sensor::Status, gain.min, 36);
RECORD_FIELD(Sensor::Status, gain.step, 40);
RECORD_FIELD(Sensor::Status, integrationTime.max, 44);
RECORD_FIELD(Sensor::Status, integrationTime.min, 48);
RECORD_FIELD(Sensor::Status, integrationTime.step, 52);
RECORD_FIELD(Sensor::Status, resolutionCollection.index, 56);
RECORD_FIELD(Sensor::Status, resolutionCollection.resolution.height, 60);
RECORD_FIELD(Sensor::Status, resolutionCollection.resolution.width, 64);
} // namespace rest
