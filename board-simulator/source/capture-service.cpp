#include "board-simulator/source/arguments.h"
#include "board-simulator/source/picture.h"
#include "board-simulator/source/services.h"
#include "board-wire/source/failure.h"

namespace board
{

namespace
{

// A test may have put anything into the record.
constexpr double sideMax = 8192;

int side(const RecordBytes& status, const std::string& name)
{
    const double value = status.number("resolutionCollection.resolution." + name);
    if (!(value >= 1 && value <= sideMax))
        throw Failure("The sensor has no resolution");
    return static_cast<int>(value);
}

} // namespace

void captureCommandAdd(CommandTable& commands, Modules& modules, Files& files, const Camera& camera)
{
    commands.add("Camera", "capture",
                 [&](const Json::Value& query, Json::Value& answer)
                 {
                     const int64_t type = integerArgument(query, "snapshot.type");
                     const int64_t locks = integerArgument(query, "lock.type");
                     if (type < Picture::Raw08 || type > Picture::Yuv)
                         throw Failure("There is no snapshot type " + std::to_string(type));
                     if (locks < 0 || locks > 7)
                         throw Failure("There is no lock type " + std::to_string(locks));
                     const RecordBytes& status = *modules.module("Sensor").status.record("status");
                     const Picture picture{
                         camera, side(status, "width"), side(status, "height"),
                         static_cast<int>(modules.module("Sensor").config.record("config")->number("bayerPattern"))};
                     const auto format = static_cast<Picture::Format>(type);
                     const std::string name = textArgument(query, "file.name") + Picture::suffix(format);
                     files.write(name, picture.file(format));
                     answer["file.name"] = name;
                 });
}

} // namespace board
