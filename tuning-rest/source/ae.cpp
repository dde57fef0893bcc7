#include "tuning-rest/source/ae.h"

namespace rest
{
Ae& Ae::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4000101, generation), "config", config);
}

Ae& Ae::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4000102, generation), "config", config);
}

Ae& Ae::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4000103, generation), "enable", isEnable);
}

Ae& Ae::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4000104, generation), "enable", isEnable);
}

Ae& Ae::reset(Generation generation) { return send(*this, COMMAND(4000105, generation)); }

Ae& Ae::statusGet(Status& status, Generation generation)
{
    return read(*this, COMMAND(4000106, generation), "status", status);
}
} // namespace rest
