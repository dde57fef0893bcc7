#pragma once

#include <string>
#include <vector>

namespace tool
{
/// What the window would pass over in silence.
struct Finding
{
    long long line = 0; ///< from 1 on; 0 for the file as a whole
    std::string text;
};

struct ChipReport
{
    std::string chipName;
    std::vector<Finding> findings; ///< in the order of the file
};

/// Reads a chip description from end to end. Throws `Failure` for a file that can't be read.
ChipReport chipReport(const std::string& path);
} // namespace tool
