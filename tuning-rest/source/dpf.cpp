#include "tuning-rest/source/dpf.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("adaptive", config.isAdaptive);
    field("div", config.divisionFactor);
    field("gradient", config.gradient);
    field("min", config.minimumBound);
    field("offset", config.offset);
    field("sigma.green", config.sigmaGreen);
    field("sigma.red.blue", config.sigmaRedBlue);
};
} // namespace

Dpf& Dpf::configGet(Config& config) { return readKeys(*this, COMMAND(4001801), configKeys, config); }

Dpf& Dpf::configSet(const Config& config) { return writeKeys(*this, COMMAND(4001802), configKeys, config); }

Dpf& Dpf::enableGet(bool& isEnable) { return read(*this, COMMAND(4001803), "enable", isEnable); }

Dpf& Dpf::enableSet(bool isEnable) { return write(*this, COMMAND(4001804), "enable", isEnable); }
} // namespace rest
