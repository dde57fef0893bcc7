#include "board-simulator/source/services.h"

#include "board-simulator/source/arguments.h"
#include "board-wire/source/base64.h"
#include "board-wire/source/failure.h"

#include <chrono>
#include <sstream>

namespace board
{

namespace
{

struct Pgm
{
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t maximum = 0;
};

Pgm pgmRead(Files& files, const std::string& name)
{
    FileHandle file = files.open(name);
    std::string head(4096, '\0');
    head.resize(file.read(head.data(), head.size()));
    for (size_t hash = head.find('#'); hash != std::string::npos; hash = head.find('#', hash))
    {
        const size_t end = head.find('\n', hash);
        head.erase(hash, end == std::string::npos ? end : end - hash);
    }
    std::istringstream stream(head);
    std::string magic;
    Pgm pgm;
    stream >> magic >> pgm.width >> pgm.height >> pgm.maximum;
    const bool isSound = stream && magic == "P5" && pgm.width > 0 && pgm.width <= 32767 && pgm.height > 0 &&
                         pgm.height <= 32767 && pgm.maximum > 0 && pgm.maximum <= 65535;
    if (!isSound)
        throw Failure("Not a picture that can be loaded: " + name);
    return pgm;
}

int pictureType(const Pgm& pgm)
{
    const int raw8 = 16;
    const int raw16 = 17;
    const int raw10 = 18;
    const int raw12 = 19;
    return pgm.maximum < 256 ? raw8 : pgm.maximum < 1024 ? raw10 : pgm.maximum < 4096 ? raw12 : raw16;
}

int pictureLayout(int bayerPattern)
{
    // By pattern: BGGR, GBRG, GRBG, RGGB.
    static const int layouts[]{20, 19, 18, 17};
    return bayerPattern >= 0 && bayerPattern < 4 ? layouts[bayerPattern] : 16;
}

RecordBytes metaData(const Pgm& pgm, bool isLsb, int bayerPattern)
{
    const Record& record = Wire::instance().record("PicBufMetaData_s");
    RecordBytes metaData(record, record.layout());
    const uint32_t bytesPerPixel = pgm.maximum < 256 ? 1 : 2;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    metaData.numberSet("Type", pictureType(pgm));
    metaData.numberSet("Layout", pictureLayout(bayerPattern));
    metaData.numberSet("Align", 16);
    metaData.numberSet("TimeStampUs",
                       static_cast<double>(std::chrono::duration_cast<std::chrono::microseconds>(now).count()));
    metaData.numberSet("buf_id.buff_size", static_cast<double>(pgm.width) * pgm.height * bytesPerPixel);
    metaData.numberSet("buf_id.width", pgm.width);
    metaData.numberSet("buf_id.height", pgm.height);
    metaData.numberSet("Data.raw.PicWidthPixel", pgm.width);
    metaData.numberSet("Data.raw.PicWidthBytes", static_cast<double>(pgm.width) * bytesPerPixel);
    metaData.numberSet("Data.raw.PicHeightPixel", pgm.height);
    metaData.numberSet("Data.raw.PixelDataAlignMode", isLsb ? 1 : 0);
    return metaData;
}

void directoryCheck(const std::string& path)
{
    if (path != "." && !path.empty())
        throw Failure("Not a directory of the board: " + path.substr(0, 255));
}

} // namespace

void imageCommandsAdd(CommandTable& commands, Modules& modules, Files& files)
{
    commands.add("Image", "load",
                 [&](auto& query, auto& answer)
                 {
                     const bool isLsb = flagArgument(query, "is.lsb");
                     const Pgm pgm = pgmRead(files, textArgument(query, "file.name"));
                     const RecordBytes& sensor = *modules.module("Sensor").config.record("config");
                     const auto pattern = static_cast<int>(sensor.number("bayerPattern"));
                     answer["metadata"] = base64Encode(metaData(pgm, isLsb, pattern).bytes());
                 });
}

void fileCommandsAdd(CommandTable& commands, Files& files)
{
    commands.add("FileSystem", "list",
                 [&](auto& query, auto& answer)
                 {
                     directoryCheck(textArgument(query, "path"));
                     Json::Value& list = answer["file.list"] = Json::Value(Json::arrayValue);
                     for (const std::string& name : files.list(textArgument(query, "file.extension")))
                         list.append(name);
                 });
    commands.add("FileSystem", "remove", [&](auto& query, auto&) { files.remove(textArgument(query, "path")); });
}

void cliCommandsAdd(CommandTable& commands, const Json::Value& versions)
{
    commands.add("Cli", "controlListGet",
                 [](auto&, auto& answer)
                 {
                     for (const CommandClass& commandClass : Wire::instance().classes())
                     {
                         for (const Command& command : commandClass.commands)
                         {
                             Json::Value element;
                             element["id"] = static_cast<Json::Int64>(command.id);
                             element["name"] = "rest::" + commandClass.name + "::" + command.name;
                             answer["controls"].append(element);
                         }
                     }
                 });
    commands.add("Cli", "versionGet", [versions](auto&, auto& answer) { answer["versions"] = versions; });
}

} // namespace board
