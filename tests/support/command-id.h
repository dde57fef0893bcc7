#pragma once

#include "board-wire/source/wire.h"

#include <string>

/// The number of a command by its name: "Ae::configGet"_id.
inline int64_t operator""_id(const char* pName, size_t size)
{
    const std::string name(pName, size);
    const auto colons = name.find("::");
    return board::Wire::instance().commandClass(name.substr(0, colons)).id(name.substr(colons + 2));
}
