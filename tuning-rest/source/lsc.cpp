#include "tuning-rest/source/lsc.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field) { field("adaptive", config.isAdaptive); };
} // namespace

Lsc& Lsc::configGet(Config& settings) { return readKeys(*this, COMMAND(4002601), configKeys, settings); }

Lsc& Lsc::configSet(const Config& settings) { return writeKeys(*this, COMMAND(4002602), configKeys, settings); }

Lsc& Lsc::enabelGet(bool& isEnable) { return read(*this, COMMAND(4002603), "enable", isEnable); }

Lsc& Lsc::enableSet(bool isEnable) { return write(*this, COMMAND(4002604), "enable", isEnable); }

Lsc& Lsc::statusGet(Status& status) { return read(*this, COMMAND(4002605), "config", status); }
} // namespace rest
