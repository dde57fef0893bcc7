#pragma once

#include <json/json.h>

#include <string>

namespace tool
{
/// A value of the command line: a number in decimal or, with 0x, in hexadecimal, true or false (on, off), JSON for a
/// list, and else the text itself. Whether a type can hold it is another question.
Json::Value valueParse(const std::string& text, const std::string& type);

/// For people: a number in its shortest form, a list in brackets, printable and bounded.
std::string valueText(const Json::Value& value);

/// Whether a board that tells `told` holds what was sent: numbers by their value, those of type "float" or "float[9]"
/// in its digits, lists and objects by their elements, all else exactly.
bool isSame(const Json::Value& sent, const Json::Value& told, const std::string& type = {});

/// The same value with texts and keys that may be shown: what is no UTF-8 or would steer a terminal is replaced.
Json::Value sound(Json::Value value);
} // namespace tool
