#include "tuning-rest/source/cnr.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("tc1", config.tc1);
    field("tc2", config.tc2);
};
} // namespace

Cnr& Cnr::configGet(Config& config) { return readKeys(*this, COMMAND(4000901), configKeys, config); }

Cnr& Cnr::configSet(const Config& config) { return writeKeys(*this, COMMAND(4000902), configKeys, config); }

Cnr& Cnr::enableGet(bool& isEnable) { return read(*this, COMMAND(4000903), "enable", isEnable); }

Cnr& Cnr::enableSet(bool isEnable) { return write(*this, COMMAND(4000904), "enable", isEnable); }
} // namespace rest
