#pragma once

#include "board-simulator/source/fault.h"

#include <json/json.h>
#include <string>

namespace board
{

/// True if the command is not to be run at all.
bool isRefused(const Fault& fault);
/// Does to an answer what faults of its object do; others leave it as it is.
void spoil(const Fault& fault, Json::Value& answer);
/// Does to the text of an answer what faults of its text do; others leave it as it is.
void spoil(const Fault& fault, std::string& text);
/// The same bytes at each call, so that a failure can be repeated.
std::string randomBytes(uint64_t count);

} // namespace board
