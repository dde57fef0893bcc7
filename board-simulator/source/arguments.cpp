#include "board-simulator/source/arguments.h"

#include "board-wire/source/failure.h"

namespace board
{

namespace
{

const Json::Value& argument(const Json::Value& query, const char* key, bool (Json::Value::*isType)() const,
                            const char* typeName)
{
    if (!query.isMember(key))
        throw Failure(std::string(key) + " is missing");
    const Json::Value& value = query[key];
    if (!(value.*isType)())
        throw Failure(std::string(key) + " is not " + typeName);
    return value;
}

} // namespace

std::string textArgument(const Json::Value& query, const char* key)
{
    return argument(query, key, &Json::Value::isString, "a text").asString();
}

bool flagArgument(const Json::Value& query, const char* key)
{
    return argument(query, key, &Json::Value::isBool, "a boolean").asBool();
}

int64_t integerArgument(const Json::Value& query, const char* key)
{
    return argument(query, key, &Json::Value::isInt64, "an integer").asInt64();
}

uint32_t registerArgument(const Json::Value& query, const char* key)
{
    return argument(query, key, &Json::Value::isUInt, "an unsigned integer of 32 bits").asUInt();
}

} // namespace board
