#pragma once

#include <cstddef>
#include <string>

namespace tool
{
/// Whether both files can be read and have the same bytes.
bool isSameFile(const std::string& left, const std::string& right);

/// The bytes of a regular file, or with "-" of standard input. Throws `Failure` where it can't be read or has more than
/// `limit` bytes.
std::string fileRead(const std::string& path, std::size_t limit);
} // namespace tool
