#include "tuning-rest/source/awb.h"

namespace rest
{
Awb& Awb::configGet(Config& settings) { return read(*this, COMMAND(4000501), "config", settings); }

Awb& Awb::configSet(const Config& settings) { return write(*this, COMMAND(4000502), "config", settings); }

Awb& Awb::enableGet(bool& isEnable) { return read(*this, COMMAND(4000503), "enable", isEnable); }

Awb& Awb::enableSet(bool isEnable) { return write(*this, COMMAND(4000504), "enable", isEnable); }

Awb& Awb::reset() { return send(*this, COMMAND(4000505)); }

Awb& Awb::statusGet(Status& status) { return read(*this, COMMAND(4000506), "status", status); }
} // namespace rest
