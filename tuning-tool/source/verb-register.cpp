#include "tuning-common/source/limits.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/value-text.h"
#include "tuning-tool/source/verbs.h"

#include <cstdio>

namespace tool
{
namespace
{
std::string hexText(const Json::Value& value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%08x", value.asUInt());
    return text;
}

/// Registers of the sensor and of the pipeline have commands of two names.
CommandShape shapeOf(const Session& session, const std::string& suffix)
{
    return commandShape(session.options.isSensor ? "Sensor.register" : "Reg.config", suffix, {});
}

std::optional<Json::Value> valueRead(Session& session, const std::string& address)
{
    const auto shape = shapeOf(session, "Get");
    Payload request(shape.request, {});
    request.set("address", address);
    const auto jAnswer = session.send(shape, request);
    if (!jAnswer)
        return {};
    Payload answer(shape.answer, {});
    answer.take(*jAnswer);
    return answer.value("value");
}

/// For people a line, for programs the element of a list.
void valueTell(Session& session, Json::Value& jRegisters, const Json::Value& address, const Json::Value& value)
{
    if (!session.options.isJson)
    {
        session.out << hexText(address) << " = " << hexText(value) << " (" << value.asUInt() << ")\n";
        return;
    }
    Json::Value jRegister;
    jRegister["address"] = address;
    jRegister["value"] = value;
    jRegisters.append(std::move(jRegister));
}

/// A list of objects under the key; throws `Failure` for anything else.
Json::Value listOf(const Json::Value& jAnswer, const char* key)
{
    const auto& jList = jAnswer[key];
    if (!jList.isArray() || jList.size() > t_common::limit::listElements)
        throw Failure(Unreadable, std::string("The answer has no list \"") + key + "\", or too long a one");
    for (const auto& jElement : jList)
        if (!jElement.isObject())
            throw Failure(Unreadable, std::string("\"") + key + "\" has an element that is no object");
    return jList;
}

std::string permissionText(const Json::Value& permission)
{
    return permission == 1 ? "R/W" : permission == 2 ? "W" : "R";
}

void mapPrint(Session& session, const Json::Value& jDump)
{
    for (const auto& jModule : jDump)
    {
        session.out << valueText(jModule["description"]) << '\n';
        std::vector<std::vector<std::string>> rows;
        for (const auto& jRegister : jModule["map"])
            rows.push_back({"  " + valueText(jRegister["address"]), permissionText(jRegister["permission"]),
                            valueText(jRegister["value"]), valueText(jRegister["name"]),
                            valueText(jRegister["description"])});
        session.columnsPrint(rows);
    }
}

void sensorDump(Session& session)
{
    if (!session.options.isDryRun)
        session.filesNeed();
    const auto shape = commandShape("Sensor.registerDump2File", {}, {});
    const auto name = session.options.words.empty() ? "dump_sensor_register.txt" : session.options.words[0];
    Payload request(shape.request, {});
    request.set("file.name", name);
    if (!session.send(shape, request))
        return;
    Json::Value jPaths;
    jPaths.append(session.download(name));
    if (session.options.isJson)
        session.jsonPrint(jPaths);
    else
        session.out << valueText(jPaths[0]) << '\n';
}
} // namespace

void registerRead(Session& session)
{
    Json::Value jRegisters(Json::arrayValue);
    for (const auto& address : session.options.words)
        if (const auto value = valueRead(session, address))
            valueTell(session, jRegisters, valueParse(address, {}), *value);
    if (session.options.isJson && !session.options.isDryRun)
        session.jsonPrint(jRegisters);
}

void registerWrite(Session& session)
{
    const auto& words = session.options.words;
    const auto shape = shapeOf(session, "Set");
    Payload request(shape.request, {});
    request.set("address", words[0]);
    request.set("value", words[1]);
    if (!session.send(shape, request))
        return;
    std::optional<Json::Value> value;
    try
    {
        value = valueRead(session, words[0]);
    }
    catch (const Failure& failure)
    {
        // A register that is written only.
        if (failure.code != Refused)
            throw;
        Json::Value jWritten = request.readable();
        jWritten["value"] = Json::Value();
        jWritten["message"] = failure.what();
        if (session.options.isJson)
            return session.jsonPrint(jWritten);
        session.out << hexText(jWritten["address"]) << " written, not read back: " << failure.what() << '\n';
        return;
    }
    Json::Value jRegisters;
    valueTell(session, jRegisters, *request.value("address"), *value);
    if (session.options.isJson)
        session.jsonPrint(jRegisters[0]);
    if (!isSame(*request.value("value"), *value))
        throw Failure(Other, "The board has another value than was sent");
}

void registerDump(Session& session)
{
    if (session.options.isSensor)
        return sensorDump(session);
    if (!session.options.words.empty())
        throw Failure(Usage, "Only a dump of the sensor has a NAME; send this one to a file of yours");
    const auto shape = commandShape("Reg.status", "Get", {});
    Payload request(shape.request, {});
    const auto jAnswer = session.send(shape, request);
    if (!jAnswer)
        return;
    Json::Value jDump(Json::arrayValue);
    for (const auto& jModule : listOf(*jAnswer, "name"))
    {
        if (!jModule["module.id"].isInt())
            throw Failure(Unreadable, "A module has no number");
        Json::Value jEntry;
        jEntry["module.id"] = jModule["module.id"];
        jEntry["description"] = jModule["description"];
        request.set("module.id", jModule["module.id"].asString());
        jEntry["map"] = listOf(session.ask(shape, request), "registers");
        jDump.append(std::move(jEntry));
    }
    if (session.options.isJson)
        session.jsonPrint(jDump);
    else
        mapPrint(session, jDump);
}
} // namespace tool
