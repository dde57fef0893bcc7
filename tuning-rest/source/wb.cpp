#include "tuning-rest/source/wb.h"

namespace rest
{
Wb& Wb::configGet(Config& config) { return read(*this, COMMAND(4003001), "config", config); }

Wb& Wb::configSet(const Config& config) { return write(*this, COMMAND(4003002), "config", config); }
} // namespace rest
