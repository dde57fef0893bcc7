#pragma once

#include "board-simulator/source/camera.h"
#include "board-simulator/source/command-table.h"
#include "board-simulator/source/files.h"
#include "board-simulator/source/modules.h"

#include <cstdint>
#include <map>
#include <set>

namespace board
{

/// The commands that all modules have in common, for every class with start values.
void moduleCommandsAdd(CommandTable& commands, Modules& modules);

/// Inputs, preview and the calibration file.
class CameraService
{
public:
    CameraService(CommandTable& commands, Modules& modules, Files& files, const Json::Value& inputs);

private:
    void calibrationGet(const Json::Value& query, Json::Value& answer);
    void calibrationSet(const Json::Value& query);
    void inputSwitch(const Json::Value& query, Json::Value& answer);
    void driverChange(const Json::Value& query);

    Modules& modules;
    Files& files;
    Json::Value inputs;
    Json::ArrayIndex inputIndex = 0;
    std::string calibration;
    bool isPreview = true;
};

/// Taking a picture at the sensor's resolution, into a file.
void captureCommandAdd(CommandTable& commands, Modules& modules, Files& files, const Camera& camera);

/// The registers of the sensor.
class SensorRegisterService
{
public:
    SensorRegisterService(CommandTable& commands, Files& files);

private:
    void dump(const Json::Value& query);

    Files& files;
    std::map<uint32_t, uint32_t> registers;
};

/// The registers of the processor, module by module.
class RegService
{
public:
    RegService(CommandTable& commands, const Json::Value& modules);

private:
    void configGet(const Json::Value& query, Json::Value& answer) const;
    void configSet(const Json::Value& query);
    void statusGet(const Json::Value& query, Json::Value& answer) const;

    Json::Value modules;
    std::map<uint32_t, int> permissions;
    std::map<uint32_t, uint32_t> values;
};

/// A stored picture as input.
void imageCommandsAdd(CommandTable& commands, Modules& modules, Files& files);

/// Listing and removing files.
void fileCommandsAdd(CommandTable& commands, Files& files);

/// What the board says about itself.
void cliCommandsAdd(CommandTable& commands, const Json::Value& versions);

} // namespace board
