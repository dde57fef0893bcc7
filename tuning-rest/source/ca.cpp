#include "tuning-rest/source/ca.h"

namespace rest
{
Ca& Ca::configGet(Config& config) { return read(*this, COMMAND(4000701), "config", config); }

Ca& Ca::configSet(const Config& config) { return write(*this, COMMAND(4000702), "config", config); }

Ca& Ca::enableGet(bool& isEnable) { return read(*this, COMMAND(4000703), "enable", isEnable); }

Ca& Ca::enableSet(bool isEnable) { return write(*this, COMMAND(4000704), "enable", isEnable); }

Ca& Ca::tableGet(Json::Value& jTable) { return read(*this, COMMAND(4000705), "table", jTable); }

Ca& Ca::tableSet(const Json::Value& jTable) { return write(*this, COMMAND(4000706), "table", jTable); }
} // namespace rest
