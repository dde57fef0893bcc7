#include "tuning-rest/source/ee.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("auto", config.isAuto);
    field("config", config.config);
};
} // namespace

Ee& Ee::configGet(Config& config) { return readKeys(*this, COMMAND(4001901), configKeys, config); }

Ee& Ee::configSet(const Config& config) { return writeKeys(*this, COMMAND(4001902), configKeys, config); }

Ee& Ee::enableGet(bool& isEnable) { return read(*this, COMMAND(4001903), "enable", isEnable); }

Ee& Ee::enableSet(bool isEnable) { return write(*this, COMMAND(4001904), "enable", isEnable); }

Ee& Ee::reset() { return send(*this, COMMAND(4001905)); }

Ee& Ee::statusGet(Status& status) { return readKeys(*this, COMMAND(4001906), exposureStatusKeys, status); }

Ee& Ee::tableGet(Json::Value& jTable) { return read(*this, COMMAND(4001907), "table", jTable); }

Ee& Ee::tableSet(const Json::Value& jTable) { return write(*this, COMMAND(4001908), "table", jTable); }
} // namespace rest
