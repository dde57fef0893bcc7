#include "board-simulator/source/services.h"

#include "board-simulator/source/arguments.h"
#include "board-simulator/source/sample-texts.h"
#include "board-wire/source/failure.h"

namespace board
{

CameraService::CameraService(CommandTable& commands, Modules& boardModules, Files& boardFiles,
                             const Json::Value& jInputs)
    : modules(boardModules), files(boardFiles), inputs(jInputs), calibration(calibrationText())
{
    commands.add("Camera", "calibrationGet", [this](auto& query, auto& answer) { calibrationGet(query, answer); });
    commands.add("Camera", "calibrationSet", [this](auto& query, auto&) { calibrationSet(query); });
    commands.add("Camera", "inputInfo",
                 [this](auto&, auto& answer)
                 {
                     answer["count"] = inputs.size();
                     answer["index"] = inputIndex;
                 });
    commands.add("Camera", "inputSwitch", [this](auto& query, auto& answer) { inputSwitch(query, answer); });
    commands.add("Camera", "preview", [this](auto& query, auto&) { isPreview = flagArgument(query, "preview"); });
    commands.add("Sensor", "driverChange", [this](auto& query, auto&) { driverChange(query); });
}

void CameraService::calibrationGet(const Json::Value& query, Json::Value& answer)
{
    flagArgument(query, "block.signal");
    const std::string name = "calibration_" + textArgument(query, "time") + ".xml";
    files.write(name, calibration);
    answer["calib.file"] = name;
}

void CameraService::calibrationSet(const Json::Value& query)
{
    flagArgument(query, "block.signal");
    calibration = files.read(textArgument(query, "calib.file"));
}

void CameraService::inputSwitch(const Json::Value& query, Json::Value& answer)
{
    const int64_t index = integerArgument(query, "index");
    if (index < 0 || index >= static_cast<int64_t>(inputs.size()))
        throw Failure("There is no input " + std::to_string(index));
    inputIndex = static_cast<Json::ArrayIndex>(index);
    const Json::Value& input = inputs[inputIndex];
    modules.module("Sensor").status.record("status")->textSet("driverName", input["driver"].asString());
    answer["input.type"] = input["type"];
    answer["driver.file"] = input["driver"];
}

void CameraService::driverChange(const Json::Value& query)
{
    const std::string name = textArgument(query, "driver.file");
    if (name.empty())
        throw Failure("driver.file is empty");
    inputs[inputIndex]["driver"] = name;
    modules.module("Sensor").status.record("status")->textSet("driverName", name);
}

} // namespace board
