#pragma once

#include "tuning-common/source/base64.h"
#include "tuning-rest/source/record.h"

#include <json/value.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace rest
{
/// These read one key of an answer. A missing key reads as null, that is false, 0, an empty text. They throw
/// std::logic_error that names the key when the type does not fit, or when the number is too large for it.
bool answerFlagGet(const Json::Value& jResponse, const char* key);
int64_t answerIntegerGet(const Json::Value& jResponse, const char* key, int64_t minimum, int64_t maximum);
double answerNumberGet(const Json::Value& jResponse, const char* key, double maximum);
std::string answerTextGet(const Json::Value& jResponse, const char* key);
Json::Value answerValueGet(const Json::Value& jResponse, const char* key);

/// The same by the type wanted: a bool, an integer of up to 32 bits, an enumeration, a float or double, std::string or
/// Json::Value.
template <class T>
T answerGet(const Json::Value& jResponse, const char* key)
{
    using Limits = std::numeric_limits<T>;
    if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, Flag>)
        return answerFlagGet(jResponse, key);
    else if constexpr (std::is_enum_v<T>)
        return static_cast<T>(answerGet<std::underlying_type_t<T>>(jResponse, key));
    else if constexpr (std::is_integral_v<T>)
        return static_cast<T>(answerIntegerGet(jResponse, key, Limits::min(), Limits::max()));
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(answerNumberGet(jResponse, key, Limits::max()));
    else if constexpr (std::is_same_v<T, std::string>)
        return answerTextGet(jResponse, key);
    else
        return answerValueGet(jResponse, key);
}

/// Reads one key into `value`: a record from its Base64 text, anything else from plain JSON. Throws
/// t_common::LogicError code 6 for a record of the wrong size. After a failure `value` is as it was.
template <class T>
void answerGet(const Json::Value& jResponse, const char* key, T& value)
{
    if constexpr (isRecord<T>)
        t_common::Base64::decode(answerTextGet(jResponse, key), value);
    else
        value = answerGet<T>(jResponse, key);
}

/// Reads a list, null or an array of at most `limit::listElements` elements; throws std::logic_error that names the
/// key.
Json::Value answerListGet(const Json::Value& jResponse, const char* key);
} // namespace rest
