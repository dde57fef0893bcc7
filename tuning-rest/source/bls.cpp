#include "tuning-rest/source/bls.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("red", config.red);
    field("green.r", config.greenR);
    field("green.b", config.greenB);
    field("blue", config.blue);
};
} // namespace

Bls& Bls::configGet(Config& config) { return readKeys(*this, COMMAND(4000601), configKeys, config); }

Bls& Bls::configSet(const Config& config) { return writeKeys(*this, COMMAND(4000602), configKeys, config); }
} // namespace rest
