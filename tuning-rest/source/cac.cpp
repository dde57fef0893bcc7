#include "tuning-rest/source/cac.h"

namespace rest
{
Cac& Cac::enableGet(bool& isEnable) { return read(*this, COMMAND(4000801), "enable", isEnable); }

Cac& Cac::enableSet(bool& isEnable) { return write(*this, COMMAND(4000802), "enable", isEnable); }

Cac& Cac::statusGet(Status& status) { return read(*this, COMMAND(4000803), "status", status); }
} // namespace rest
