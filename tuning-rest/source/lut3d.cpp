#include "tuning-rest/source/lut3d.h"

namespace rest
{
Lut3d& Lut3d::enableGet(bool& isEnable) { return read(*this, COMMAND(4002501), "enable", isEnable); }

Lut3d& Lut3d::enableSet(bool isEnable) { return write(*this, COMMAND(4002502), "enable", isEnable); }
} // namespace rest
