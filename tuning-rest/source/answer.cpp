#include "tuning-rest/source/answer.h"

#include "tuning-common/source/limits.h"

#include <stdexcept>

namespace rest
{
namespace
{
template <class Convert>
auto converted(const Json::Value& jResponse, const char* key, const char* expected, Convert convert)
{
    try
    {
        return convert(jResponse[key]);
    }
    catch (const Json::Exception&)
    {
        throw std::logic_error("Error in the answer: \"" + std::string(key) + "\" is not " + expected);
    }
}
} // namespace

template <>
bool answerGet<bool>(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "a truth value", [](const Json::Value& value) { return value.asBool(); });
}

template <>
int32_t answerGet<int32_t>(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "an integer", [](const Json::Value& value) { return value.asInt(); });
}

template <>
uint32_t answerGet<uint32_t>(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "an unsigned integer", [](const Json::Value& value) { return value.asUInt(); });
}

template <>
std::string answerGet<std::string>(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "a text", [](const Json::Value& value) { return value.asString(); });
}

template <>
Json::Value answerGet<Json::Value>(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "there", [](const Json::Value& value) { return value; });
}

Json::Value answerListGet(const Json::Value& jResponse, const char* key)
{
    auto list = answerGet<Json::Value>(jResponse, key);
    if (!list.isNull() && !list.isArray())
        throw std::logic_error("Error in the answer: \"" + std::string(key) + "\" is not a list");
    if (list.size() > t_common::limit::listElements)
        throw std::logic_error("Error in the answer: \"" + std::string(key) + "\" has " + std::to_string(list.size()) +
                               " elements, more than " + std::to_string(t_common::limit::listElements));
    return list;
}
} // namespace rest
