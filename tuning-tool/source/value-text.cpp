#include "tuning-tool/source/value-text.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <charconv>
#include <cmath>
#include <optional>

namespace tool
{
namespace
{
template <class T>
std::optional<Json::Value> integerParse(const std::string& text)
{
    const bool isHexadecimal = text.rfind("0x", 0) == 0 || text.rfind("0X", 0) == 0;
    const auto* pBegin = text.data() + (isHexadecimal ? 2 : 0);
    const auto* pEnd = text.data() + text.size();
    T number = 0;
    const auto result = std::from_chars(pBegin, pEnd, number, isHexadecimal ? 16 : 10);
    if (pBegin == pEnd || result.ec != std::errc() || result.ptr != pEnd || (isHexadecimal && *pBegin == '-'))
        return {};
    if constexpr (std::is_signed_v<T>)
        return Json::Value(static_cast<Json::Int64>(number));
    else
        return Json::Value(static_cast<Json::UInt64>(number));
}

std::optional<Json::Value> numberParse(const std::string& text)
{
    if (auto number = integerParse<std::int64_t>(text))
        return number;
    if (auto number = integerParse<std::uint64_t>(text))
        return number;
    double number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = result.ec == std::errc() && result.ptr == text.data() + text.size() && std::isfinite(number);
    return isNumber ? std::optional<Json::Value>(number) : std::nullopt;
}

std::string shown(const std::string& text)
{
    return t_common::printable(text, std::string::npos, t_common::Lines::Many);
}

/// In place, since most values are sound and a snapshot has thousands.
void soundMake(Json::Value& value)
{
    if (value.isString())
        value = shown(value.asString());
    else if (value.isDouble() && !std::isfinite(value.asDouble()))
        value = Json::Value();
    else if (value.isArray() || value.isObject())
        for (auto& element : value)
            soundMake(element);
    if (!value.isObject())
        return;
    for (const auto& name : value.getMemberNames())
        if (auto text = shown(name); text != name)
        {
            Json::Value element;
            value.removeMember(name, &element);
            value[text] = std::move(element);
        }
}
} // namespace

Json::Value valueParse(const std::string& text, const std::string& type)
{
    if (type == "text" || type == "bytes" || type == "char")
        return text;
    if (type == "bool" && (text == "true" || text == "on" || text == "1"))
        return true;
    if (type == "bool" && (text == "false" || text == "off" || text == "0"))
        return false;
    if (!text.empty() && (text[0] == '[' || text[0] == '{'))
        return t_common::JsonApp::fromString(text);
    return numberParse(text).value_or(text);
}

std::string valueText(const Json::Value& value)
{
    namespace limit = t_common::limit;
    if (value.isString())
        return t_common::printable(value.asString(), limit::listText);
    if (value.isArray() || value.isObject())
        return t_common::printable(t_common::JsonApp::toString(value, ""), limit::statusBarText);
    if (!value.isDouble() || value.isIntegral())
        return value.isNull() ? "none" : value.asString();
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value.asDouble()).ptr};
}

bool isSame(const Json::Value& sent, const Json::Value& told, const std::string& type)
{
    if (sent.isNumeric() && told.isNumeric())
    {
        if (type.rfind("float", 0) == 0)
            return sent.asFloat() == told.asFloat();
        if (sent.isInt64() && told.isInt64())
            return sent.asInt64() == told.asInt64();
        if (sent.isUInt64() && told.isUInt64())
            return sent.asUInt64() == told.asUInt64();
        return sent.asDouble() == told.asDouble();
    }
    if (sent.type() != told.type() || !(sent.isArray() || sent.isObject()))
        return sent == told;
    if (sent.size() != told.size())
        return false;
    for (auto element = sent.begin(), other = told.begin(); element != sent.end(); ++element, ++other)
        if (element.name() != other.name() || !isSame(*element, *other, type))
            return false;
    return true;
}

Json::Value sound(Json::Value value)
{
    soundMake(value);
    return value;
}
} // namespace tool
