#include "tuning-rest/source/image.h"

namespace rest
{
Image& Image::load(const std::string& filename, Config& config)
{
    return read(*this, COMMAND(60001).with("file.name", filename).with("is.lsb", config.isLsb), "metadata",
                config.metaData);
}
} // namespace rest
