#include "tuning-rest/source/dci.h"

namespace rest
{
Dci& Dci::configGet(Config& config) { return read(*this, COMMAND(4001201), "config", config); }

Dci& Dci::configSet(const Config& config) { return write(*this, COMMAND(4001202), "config", config); }

Dci& Dci::enableGet(bool& isEnable) { return read(*this, COMMAND(4001203), "enable", isEnable); }

Dci& Dci::enableSet(bool isEnable) { return write(*this, COMMAND(4001204), "enable", isEnable); }

Dci& Dci::tableGet(Json::Value& jTable) { return read(*this, COMMAND(4001205), "table", jTable); }

Dci& Dci::tableSet(const Json::Value& jTable) { return write(*this, COMMAND(4001206), "table", jTable); }
} // namespace rest
