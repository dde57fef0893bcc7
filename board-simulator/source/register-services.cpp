#include "board-simulator/source/services.h"

#include "board-simulator/source/arguments.h"
#include "board-wire/source/failure.h"

#include <cstdio>

namespace board
{

namespace
{

enum Permission
{
    ReadOnly = 0,
    ReadWrite = 1,
    WriteOnly = 2
};

std::string hex(uint32_t number)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%08x", number);
    return text;
}

uint32_t valueOf(const std::map<uint32_t, uint32_t>& values, uint32_t address)
{
    auto found = values.find(address);
    return found == values.end() ? 0 : found->second;
}

} // namespace

SensorRegisterService::SensorRegisterService(CommandTable& commands, Files& boardFiles) : files(boardFiles)
{
    for (uint32_t address = 0x3000; address < 0x3040; ++address)
        registers[address] = address * 37 % 256;
    commands.add("Sensor", "registerGet",
                 [this](auto& query, auto& answer)
                 { answer["value"] = valueOf(registers, registerArgument(query, "address")); });
    commands.add("Sensor", "registerSet",
                 [this](auto& query, auto&)
                 {
                     const uint32_t value = registerArgument(query, "value");
                     registers[registerArgument(query, "address")] = value;
                 });
    commands.add("Sensor", "registerDump2File", [this](auto& query, auto&) { dump(query); });
}

void SensorRegisterService::dump(const Json::Value& query)
{
    std::string text;
    for (const auto& [address, value] : registers)
        text += hex(address) + " " + hex(value) + "\n";
    files.write(textArgument(query, "file.name"), text);
}

RegService::RegService(CommandTable& commands, const Json::Value& jModules) : modules(jModules)
{
    for (const Json::Value& module : modules)
    {
        for (const Json::Value& jRegister : module["registers"])
        {
            permissions[jRegister["address"].asUInt()] = jRegister["permission"].asInt();
            values[jRegister["address"].asUInt()] = jRegister["default"].asUInt();
        }
    }
    commands.add("Reg", "configGet", [this](auto& query, auto& answer) { configGet(query, answer); });
    commands.add("Reg", "configSet", [this](auto& query, auto&) { configSet(query); });
    commands.add("Reg", "statusGet", [this](auto& query, auto& answer) { statusGet(query, answer); });
}

void RegService::configGet(const Json::Value& query, Json::Value& answer) const
{
    const uint32_t address = registerArgument(query, "address");
    auto permission = permissions.find(address);
    if (permission != permissions.end() && permission->second == WriteOnly)
        throw Failure("Register " + hex(address) + " is write only");
    answer["value"] = valueOf(values, address);
}

void RegService::configSet(const Json::Value& query)
{
    const uint32_t address = registerArgument(query, "address");
    const uint32_t value = registerArgument(query, "value");
    auto permission = permissions.find(address);
    if (permission != permissions.end() && permission->second == ReadOnly)
        throw Failure("Register " + hex(address) + " is read only");
    values[address] = value;
}

void RegService::statusGet(const Json::Value& query, Json::Value& answer) const
{
    const bool isList = !query.isMember("module.id");
    const int64_t id = isList ? 0 : integerArgument(query, "module.id");
    Json::Value& list = answer[isList ? "name" : "registers"] = Json::Value(Json::arrayValue);
    for (const Json::Value& module : modules)
    {
        if (isList)
        {
            Json::Value element;
            element["description"] = module["description"];
            element["module.id"] = module["module.id"];
            list.append(element);
        }
        else if (module["module.id"].asInt64() == id)
        {
            for (const Json::Value& jRegister : module["registers"])
            {
                const uint32_t address = jRegister["address"].asUInt();
                Json::Value element;
                element["permission"] = jRegister["permission"];
                element["address"] = hex(address);
                element["name"] = jRegister["name"];
                element["value.default"] = hex(jRegister["default"].asUInt());
                element["value"] = hex(valueOf(values, address));
                element["description"] = jRegister["description"];
                list.append(element);
            }
            return;
        }
    }
    if (!isList)
        throw Failure("There is no register module " + std::to_string(id));
}

} // namespace board
