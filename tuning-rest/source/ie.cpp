#include "tuning-rest/source/ie.h"

namespace rest
{
Ie& Ie::configGet(Config& config) { return read(*this, COMMAND(4002401), "config", config); }

Ie& Ie::configSet(const Config& config) { return write(*this, COMMAND(4002402), "config", config); }

Ie& Ie::enableGet(bool& isEnable) { return read(*this, COMMAND(4002403), "enable", isEnable); }

Ie& Ie::enableSet(bool isEnable) { return write(*this, COMMAND(4002404), "enable", isEnable); }
} // namespace rest
