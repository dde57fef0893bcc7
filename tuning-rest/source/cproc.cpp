#include "tuning-rest/source/cproc.h"

namespace rest
{
Cproc& Cproc::configGet(Config& config) { return read(*this, COMMAND(4001101), "config", config); }

Cproc& Cproc::configSet(const Config& config) { return write(*this, COMMAND(4001102), "config", config); }

Cproc& Cproc::enableGet(bool& isEnable) { return read(*this, COMMAND(4001103), "enable", isEnable); }

Cproc& Cproc::enableSet(bool isEnable) { return write(*this, COMMAND(4001104), "enable", isEnable); }
} // namespace rest
