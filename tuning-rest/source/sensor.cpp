#include "tuning-rest/source/sensor.h"

#include "tuning-common/source/file-system.h"
#include "tuning-transfer/source/transfer-client.h"

namespace rest
{
Sensor& Sensor::configGet(Config& config) { return read(*this, COMMAND(80001), "config", config); }

Sensor& Sensor::configSet(const Config& config) { return write(*this, COMMAND(80002), "config", config); }

Sensor& Sensor::driverChange(const std::string& driverFileName)
{
    return send(*this, COMMAND(80003).with("driver.file", driverFileName), TimeoutLong);
}

Sensor& Sensor::driverChange(const std::string& driverFileName,
                             const std::function<void(const Json::Value&)>& fComplete)
{
    request(COMMAND(80003).with("driver.file", driverFileName).query(), fComplete, TimeoutLong);
    return *this;
}

Sensor& Sensor::registerDump2File(std::string& path)
{
    auto filename = t_common::FileSystem::filenameGetFromPath(path);
    if (filename.empty())
        path = filename = "dump_sensor_register.txt";
    write(*this, COMMAND(80004), "file.name", filename);

    Json::Value jFile;
    jFile["path"] = filename;
    clientHolder().fileDownload(jFile);
    return *this;
}

Sensor& Sensor::registerGet(uint32_t address, uint32_t& value)
{
    return read(*this, COMMAND(80005).with("address", address), "value", value);
}

Sensor& Sensor::registerSet(uint32_t address, uint32_t value)
{
    return send(*this, COMMAND(80006).with("address", address).with("value", value));
}

Sensor& Sensor::statusGet(Status& status) { return read(*this, COMMAND(80007), "status", status); }
} // namespace rest
