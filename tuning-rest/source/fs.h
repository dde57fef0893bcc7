#pragma once

#include "tuning-rest/source/abstract.h"

#include <string>
#include <vector>

namespace rest
{
/// The files on the board.
class FileSystem : public Abstract
{
public:
    /// Appends to `list` the names of the files in `path` that end in `extension` (without a dot, such as "xml").
    FileSystem& list(std::vector<std::string>& list, const std::string& extension, const std::string& path);

    FileSystem& remove(const std::string& path);
};
} // namespace rest
