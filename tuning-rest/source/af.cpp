#include "tuning-rest/source/af.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("algorithm", config.searchAlgorithm);
    field("oneshot", config.isOneshort);
};
} // namespace

Af& Af::availableGet(bool& isAvailable) { return read(*this, COMMAND(4000201), "available", isAvailable); }

Af& Af::configGet(Config& config) { return readKeys(*this, COMMAND(4000202), configKeys, config); }

Af& Af::configSet(const Config& config) { return writeKeys(*this, COMMAND(4000203), configKeys, config); }

Af& Af::enableGet(bool& isEnable) { return read(*this, COMMAND(4000204), "enable", isEnable); }

Af& Af::enableSet(bool isEnable) { return write(*this, COMMAND(4000205), "enable", isEnable); }
} // namespace rest
