#pragma once

#include <cstddef>
#include <json/json.h>

#include <string>

namespace tool
{
/// Whether both files can be read and have the same bytes.
bool isSameFile(const std::string& left, const std::string& right);

/// The bytes of a regular file, or with "-" of standard input. Throws `Failure` where it can't be read or has more than
/// `limit` bytes.
std::string fileRead(const std::string& path, std::size_t limit);

/// The JSON of a file, - for standard input; throws `Failure` for what is none, for a key that is there twice and for
/// more than a program would write.
Json::Value jsonRead(const std::string& path);
} // namespace tool
