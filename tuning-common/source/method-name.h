#pragma once

#include <string>

/// Class and method of a signature as the compiler spells it in `__PRETTY_FUNCTION__`, such as "rest::Ae::configGet".
/// Where the signature holds no class, it is the method's short name.
std::string computeMethodName(const std::string& function, const std::string& prettyFunction);
