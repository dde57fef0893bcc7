#include "tuning-rest/source/filter.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("auto", config.isAuto);
    field("denoise", config.denoise);
    field("sharpen", config.sharpen);
    field("chrV", config.chrV);
    field("chrH", config.chrH);
};
} // namespace

Filter& Filter::configGet(Config& config) { return readKeys(*this, COMMAND(4002001), configKeys, config); }

Filter& Filter::configSet(const Config& config) { return writeKeys(*this, COMMAND(4002002), configKeys, config); }

Filter& Filter::enableGet(bool& isEnable) { return read(*this, COMMAND(4002003), "enable", isEnable); }

Filter& Filter::enableSet(bool isEnable) { return write(*this, COMMAND(4002004), "enable", isEnable); }

Filter& Filter::reset() { return send(*this, COMMAND(4002005)); }

Filter& Filter::statusGet(Status& status) { return readKeys(*this, COMMAND(4002006), exposureStatusKeys, status); }

Filter& Filter::tableGet(Json::Value& jTable) { return read(*this, COMMAND(4002007), "table", jTable); }

Filter& Filter::tableSet(const Json::Value& jTable) { return write(*this, COMMAND(4002008), "table", jTable); }
} // namespace rest
