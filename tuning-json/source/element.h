#pragma once

#include "tuning-json/source/value.h"

namespace t_json
{
/// An element of an array or a member of an object with the text around it.
struct Value::Element
{
    std::string head; ///< from the bracket or comma up to the value: blanks, and of a member its key and the colon
    std::string key;  ///< of a member, decoded
    Value value;
    std::string tail; ///< blanks up to the comma or bracket
};
} // namespace t_json
