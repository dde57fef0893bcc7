#include "board-wire/source/scalar.h"

#include "board-wire/source/failure.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <stdexcept>
#include <type_traits>

namespace board
{

namespace
{

template <typename T>
Json::Value realValue(T real)
{
    if (!std::isfinite(real))
        return std::isnan(real) ? "nan" : real > 0 ? "inf" : "-inf";
    char text[64];
    *std::to_chars(text, text + sizeof text - 1, real).ptr = '\0';
    return std::strtod(text, nullptr);
}

template <typename T>
Json::Value load(const char* pBytes)
{
    T value;
    std::memcpy(&value, pBytes, sizeof value);
    if constexpr (std::is_floating_point_v<T>)
        return realValue(value);
    else if constexpr (std::is_unsigned_v<T>)
        return static_cast<Json::UInt64>(value);
    else
        return static_cast<Json::Int64>(value);
}

template <typename T>
bool store(char* pBytes, const Json::Value& json)
{
    using Limits = std::numeric_limits<T>;
    T value{};
    if constexpr (std::is_floating_point_v<T>)
    {
        if (!json.isNumeric() || !(std::fabs(json.asDouble()) <= Limits::max()))
            return false;
        value = static_cast<T>(json.asDouble());
    }
    else if constexpr (std::is_unsigned_v<T>)
    {
        if (!json.isUInt64() || json.asUInt64() > Limits::max())
            return false;
        value = static_cast<T>(json.asUInt64());
    }
    else
    {
        if (!json.isInt64() || json.asInt64() < Limits::min() || json.asInt64() > Limits::max())
            return false;
        value = static_cast<T>(json.asInt64());
    }
    std::memcpy(pBytes, &value, sizeof value);
    return true;
}

template <typename T>
double number(const char* pBytes)
{
    T value;
    std::memcpy(&value, pBytes, sizeof value);
    return static_cast<double>(value);
}

template <typename T>
void numberStore(char* pBytes, double number)
{
    T value;
    if constexpr (std::is_integral_v<T>)
    {
        // The upper bound of a 64-bit type is not a double; the next lower one is.
        const double low = static_cast<double>(std::numeric_limits<T>::min());
        const double high = std::nextafter(std::ldexp(1.0, std::numeric_limits<T>::digits), 0.0);
        value = std::isnan(number) ? T{} : static_cast<T>(std::clamp(number, low, high));
    }
    else
    {
        value = static_cast<T>(number);
    }
    std::memcpy(pBytes, &value, sizeof value);
}

Json::Value flagLoad(const char* pBytes) { return *pBytes != 0; }

bool flagStore(char* pBytes, const Json::Value& json)
{
    const bool isFlag = json.isBool() || (json.isUInt64() && json.asUInt64() <= 1);
    if (isFlag)
        *pBytes = json.asBool() ? 1 : 0;
    return isFlag;
}

template <typename T>
Scalar scalarOf()
{
    using Limits = std::numeric_limits<T>;
    std::string range = "finite";
    if constexpr (std::is_integral_v<T>)
        range = std::to_string(Limits::min()) + " to " + std::to_string(Limits::max());
    return {sizeof(T), load<T>, store<T>, number<T>, numberStore<T>, range};
}

} // namespace

const Scalar* scalarFind(const std::string& type)
{
    static const std::map<std::string, Scalar> scalars{
        {"bool", {1, flagLoad, flagStore, number<uint8_t>, numberStore<uint8_t>, "true or false"}},
        {"char", scalarOf<uint8_t>()},
        {"int8_t", scalarOf<int8_t>()},
        {"uint8_t", scalarOf<uint8_t>()},
        {"int16_t", scalarOf<int16_t>()},
        {"uint16_t", scalarOf<uint16_t>()},
        {"enum", scalarOf<int32_t>()},
        {"int32_t", scalarOf<int32_t>()},
        {"uint32_t", scalarOf<uint32_t>()},
        {"int64_t", scalarOf<int64_t>()},
        {"uint64_t", scalarOf<uint64_t>()},
        {"pointer", scalarOf<uint64_t>()},
        {"float", scalarOf<float>()},
        {"double", scalarOf<double>()}};
    const auto found = scalars.find(type);
    return found == scalars.end() ? nullptr : &found->second;
}

const Scalar& scalar(const std::string& type)
{
    const Scalar* pScalar = scalarFind(type);
    if (!pScalar)
        throw std::out_of_range("Unknown to the board: " + type);
    return *pScalar;
}

bool Scalar::canHold(const Json::Value& value) const
{
    char scratch[sizeof(uint64_t)];
    return fStore(scratch, value);
}

void scalarCheck(const std::string& type, const Json::Value& value, const std::string& name)
{
    const Scalar* pScalar = scalarFind(type);
    if (pScalar && !pScalar->canHold(value))
        throw Failure(name + " is of type " + type + " (" + pScalar->range + ")");
}

} // namespace board
