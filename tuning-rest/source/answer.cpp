#include "tuning-rest/source/answer.h"

#include "tuning-common/source/limits.h"

#include <cmath>
#include <stdexcept>

namespace rest
{
namespace
{
[[noreturn]] void fail(const char* key, const std::string& expected)
{
    throw std::logic_error("Error in the answer: \"" + std::string(key) + "\" is not " + expected);
}

template <class Convert>
auto converted(const Json::Value& jResponse, const char* key, const char* expected, Convert convert)
{
    try
    {
        return convert(jResponse[key]);
    }
    catch (const Json::Exception&)
    {
        fail(key, expected);
    }
}
} // namespace

bool answerFlagGet(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "a truth value", [](const Json::Value& value) { return value.asBool(); });
}

int64_t answerIntegerGet(const Json::Value& jResponse, const char* key, int64_t minimum, int64_t maximum)
{
    const auto expected = minimum < 0 ? "an integer" : "an unsigned integer";
    const auto integer = converted(jResponse, key, expected, [](const Json::Value& value) { return value.asInt64(); });
    if (integer < minimum || integer > maximum)
        fail(key, expected);
    return integer;
}

double answerNumberGet(const Json::Value& jResponse, const char* key, double maximum)
{
    const auto number =
        converted(jResponse, key, "a number", [](const Json::Value& value) { return value.asDouble(); });
    if (!(std::fabs(number) <= maximum))
        fail(key, "a number of its precision");
    return number;
}

std::string answerTextGet(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "a text", [](const Json::Value& value) { return value.asString(); });
}

Json::Value answerValueGet(const Json::Value& jResponse, const char* key)
{
    return converted(jResponse, key, "there", [](const Json::Value& value) { return value; });
}

Json::Value answerListGet(const Json::Value& jResponse, const char* key)
{
    auto list = answerValueGet(jResponse, key);
    if (!list.isNull() && !list.isArray())
        fail(key, "a list");
    if (list.size() > t_common::limit::listElements)
        throw std::logic_error("Error in the answer: \"" + std::string(key) + "\" has " + std::to_string(list.size()) +
                               " elements, more than " + std::to_string(t_common::limit::listElements));
    return list;
}
} // namespace rest
