#include "tuning-rest/source/dehaze.h"

namespace rest
{
Dehaze& Dehaze::enableGet(bool& isEnable) { return read(*this, COMMAND(7000101), "enable", isEnable); }

Dehaze& Dehaze::enableSet(bool isEnable) { return write(*this, COMMAND(7000102), "enable", isEnable); }
} // namespace rest
