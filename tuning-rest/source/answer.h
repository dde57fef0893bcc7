#pragma once

#include <json/value.h>

#include <cstdint>
#include <string>

namespace rest
{
/// Reads one key of an answer as a bool, int32_t, uint32_t, std::string or Json::Value. A missing key reads as null,
/// that is false, 0, an empty text. Throws std::logic_error that names the key when the type does not fit.
template <class T>
T answerGet(const Json::Value& jResponse, const char* key);

template <>
bool answerGet<bool>(const Json::Value& jResponse, const char* key);
template <>
int32_t answerGet<int32_t>(const Json::Value& jResponse, const char* key);
template <>
uint32_t answerGet<uint32_t>(const Json::Value& jResponse, const char* key);
template <>
std::string answerGet<std::string>(const Json::Value& jResponse, const char* key);
template <>
Json::Value answerGet<Json::Value>(const Json::Value& jResponse, const char* key);

/// Reads a list, null or an array of at most `limit::listElements` elements; throws std::logic_error that names the
/// key.
Json::Value answerListGet(const Json::Value& jResponse, const char* key);
} // namespace rest
