#include "tuning-rest/source/dg.h"

namespace rest
{
Dg& Dg::configGet(Config& config) { return read(*this, COMMAND(4001401), "config", config); }

Dg& Dg::configSet(const Config& config) { return write(*this, COMMAND(4001402), "config", config); }

Dg& Dg::enableGet(bool& isEnable) { return read(*this, COMMAND(4001403), "enable", isEnable); }

Dg& Dg::enableSet(bool isEnable) { return write(*this, COMMAND(4001404), "enable", isEnable); }
} // namespace rest
