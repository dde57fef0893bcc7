#include "tuning-rest/source/roi.h"

namespace rest
{
Roi& Roi::configGet(Config& config) { return read(*this, COMMAND(4003201), "config", config); }

Roi& Roi::configSet(const Config& config) { return write(*this, COMMAND(4003202), "config", config); }
} // namespace rest
