#include "tuning-rest/source/dpcc.h"

namespace rest
{
Dpcc& Dpcc::configGet(Config& config) { return read(*this, COMMAND(4001701), "config", config); }

Dpcc& Dpcc::configSet(const Config& config) { return write(*this, COMMAND(4001702), "config", config); }

Dpcc& Dpcc::enableGet(bool& isEnable) { return read(*this, COMMAND(4001703), "enable", isEnable); }

Dpcc& Dpcc::enableSet(bool isEnable) { return write(*this, COMMAND(4001704), "enable", isEnable); }
} // namespace rest
