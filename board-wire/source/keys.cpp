#include "board-wire/source/keys.h"

#include "board-wire/source/data.h"
#include "board-wire/source/failure.h"
#include "board-wire/source/json-text.h"
#include "board-wire/source/scalar.h"
#include "board-wire/source/wire.h"

#include <algorithm>

namespace board
{

namespace
{

constexpr char recordPrefix[] = "record ";

bool startsWith(const std::string& text, const std::string& start) { return text.rfind(start, 0) == 0; }

const Json::Value& ofGeneration(const Json::Value& map, const std::string& generation)
{
    const bool isVersioned = map.isObject() && !map.empty() && map.begin()->isObject();
    return isVersioned ? map[generation] : map;
}

void append(std::vector<Key>& keys, const Json::Value& map, const std::string& className)
{
    for (const std::string& name : map.getMemberNames())
    {
        Key key{name, map[name].asString(), false};
        if (key.type.back() == '?')
        {
            key.type.pop_back();
            key.isOptional = true;
        }
        const size_t place = key.type.find('$');
        if (place != std::string::npos)
            key.type.replace(place, 1, className);
        keys.push_back(std::move(key));
    }
}

std::string generationName(const CommandClass& commandClass, const Json::Value& query)
{
    for (const auto& [name, number] : commandClass.generations)
        if (query["generation"] == number)
            return name;
    return {};
}

} // namespace

std::string Key::recordName() const
{
    return startsWith(type, recordPrefix) ? type.substr(sizeof recordPrefix - 1) : std::string();
}

bool Key::fits(const Json::Value& value) const
{
    if (type == "bool")
        return value.isBool();
    if (type == "float" || type == "double")
        return value.isNumeric();
    if (const Scalar* pScalar = scalarFind(type))
        return pScalar->canHold(value);
    if (type == "text" || type == "bytes" || startsWith(type, recordPrefix))
        return value.isString();
    return startsWith(type, "list") ? value.isArray() : value.isObject();
}

const Keys& Keys::instance()
{
    static const Keys keys;
    return keys;
}

Keys::Keys()
{
    const Json::Value description = JsonText().parse(commandsText);
    shapes = description["shapes"];
    classes = description["classes"];
}

std::vector<Key> Keys::request(const std::string& className, const std::string& command,
                               const std::string& generation) const
{
    return keys(className, command, "request", generation);
}

std::vector<Key> Keys::answer(const std::string& className, const std::string& command,
                              const std::string& generation) const
{
    return keys(className, command, "answer", generation);
}

std::string Keys::note(const std::string& className, const std::string& command) const
{
    return command.empty() ? classes[className]["note"].asString() : entry(className, command)["note"].asString();
}

void Keys::requestCheck(const std::string& className, const std::string& command, const Json::Value& query) const
{
    const auto& commandClass = Wire::instance().commandClass(className);
    for (const Key& key : request(className, command, generationName(commandClass, query)))
    {
        if (!query.isMember(key.name))
        {
            if (!key.isOptional)
                throw Failure(key.name + " is missing");
        }
        else if (!key.fits(query[key.name]))
        {
            throw Failure(key.name + " is of the wrong type");
        }
    }
}

const Json::Value& Keys::entry(const std::string& className, const std::string& command) const
{
    const Json::Value& own = classes[className][command];
    return own.isNull() ? shapes[command] : own;
}

std::vector<Key> Keys::keys(const std::string& className, const std::string& command, const char* side,
                            const std::string& generation) const
{
    std::vector<Key> result;
    const Json::Value& config = classes[className]["config"];
    const std::string configSide = command == "configGet" ? "answer" : command == "configSet" ? "request" : "";
    const bool isConfig = !config.isNull() && configSide == side;
    if (isConfig)
        append(result, ofGeneration(config, generation), className);
    const Json::Value& own = isConfig ? classes[className][command] : entry(className, command);
    append(result, ofGeneration(own[side], generation), className);
    std::sort(result.begin(), result.end(), [](const Key& left, const Key& right) { return left.name < right.name; });
    return result;
}

} // namespace board
