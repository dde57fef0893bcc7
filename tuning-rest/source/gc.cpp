#include "tuning-rest/source/gc.h"

namespace rest
{
Gc& Gc::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4002101, generation), "config", config);
}

Gc& Gc::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4002102, generation), "config", config);
}

Gc& Gc::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4002103, generation), "enable", isEnable);
}

Gc& Gc::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4002104, generation), "enable", isEnable);
}
} // namespace rest
