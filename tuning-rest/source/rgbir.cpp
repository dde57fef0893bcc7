#include "tuning-rest/source/rgbir.h"

namespace rest
{
Rgbir& Rgbir::configGet(Config& config) { return read(*this, COMMAND(4002801), "config", config); }

Rgbir& Rgbir::configSet(const Config& config) { return write(*this, COMMAND(4002802), "config", config); }

Rgbir& Rgbir::enableGet(bool& isEnable) { return read(*this, COMMAND(4002803), "enable", isEnable); }

Rgbir& Rgbir::enableSet(bool isEnable) { return write(*this, COMMAND(4002804), "enable", isEnable); }
} // namespace rest
