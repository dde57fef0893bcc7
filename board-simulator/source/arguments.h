#pragma once

#include <cstdint>
#include <json/json.h>
#include <string>

namespace board
{

/// The arguments of a command. Each throws `Failure` that names the key if it is missing or of another type.
std::string textArgument(const Json::Value& query, const char* key);
bool flagArgument(const Json::Value& query, const char* key);
int64_t integerArgument(const Json::Value& query, const char* key);
uint32_t registerArgument(const Json::Value& query, const char* key);

} // namespace board
