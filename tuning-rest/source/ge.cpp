#include "tuning-rest/source/ge.h"

namespace rest
{
Ge& Ge::configGet(Config& settings) { return read(*this, COMMAND(4002201), "config", settings); }

Ge& Ge::configSet(const Config& settings) { return write(*this, COMMAND(4002202), "config", settings); }

Ge& Ge::enableGet(bool& isEnable) { return read(*this, COMMAND(4002203), "enable", isEnable); }

Ge& Ge::enableSet(bool isEnable) { return write(*this, COMMAND(4002204), "enable", isEnable); }
} // namespace rest
