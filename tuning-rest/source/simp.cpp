#include "tuning-rest/source/simp.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("file.name", config.fileName);
    field("config", config.config);
};
} // namespace

Simp& Simp::configGet(Config& config) { return readKeys(*this, COMMAND(4002901), configKeys, config); }

Simp& Simp::configSet(const Config& config) { return writeKeys(*this, COMMAND(4002902), configKeys, config); }

Simp& Simp::enableGet(bool& isEnable) { return read(*this, COMMAND(4002903), "enable", isEnable); }

Simp& Simp::enableSet(bool isEnable) { return write(*this, COMMAND(4002904), "enable", isEnable); }
} // namespace rest
