#include "tuning-rest/source/demosaic.h"

namespace rest
{
DeMosaic& DeMosaic::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4001301, generation), "config", config);
}

DeMosaic& DeMosaic::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4001302, generation), "config", config);
}

// Read as an integer: boards may answer one.
DeMosaic& DeMosaic::enableGet(bool& isEnable, Generation generation)
{
    int32_t enable = 0;
    read(*this, COMMAND(4001303, generation), "enable", enable);
    isEnable = enable != 0;
    return *this;
}

DeMosaic& DeMosaic::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4001304, generation), "enable", isEnable);
}

DeMosaic& DeMosaic::reset(Generation generation) { return send(*this, COMMAND(4001305, generation)); }
} // namespace rest
