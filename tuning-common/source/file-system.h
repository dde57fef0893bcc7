#pragma once

#include <string>

namespace t_common
{
class FileSystem
{
public:
    /// What follows the last separator of a path.
    static std::string filenameGetFromPath(const std::string& path);

    /// The name under which a file of the board may be stored here: the last component of the board's text. Throws
    /// `std::runtime_error` when that is no plain file name, so that the board never chooses the directory.
    static std::string localNameGet(const std::string& text);
};
} // namespace t_common
