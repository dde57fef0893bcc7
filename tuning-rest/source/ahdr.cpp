#include "tuning-rest/source/ahdr.h"

namespace rest
{
Ahdr& Ahdr::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4000301, generation), "config", config);
}

Ahdr& Ahdr::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4000302, generation), "config", config);
}

Ahdr& Ahdr::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4000303, generation), "enable", isEnable);
}

Ahdr& Ahdr::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4000304, generation), "enable", isEnable);
}

Ahdr& Ahdr::reset(Generation generation) { return send(*this, COMMAND(4000305, generation)); }

Ahdr& Ahdr::tableGet(Json::Value& jTable, Generation generation)
{
    return read(*this, COMMAND(4000306, generation), "table", jTable);
}

Ahdr& Ahdr::tableSet(const Json::Value& jTable, Generation generation)
{
    return write(*this, COMMAND(4000307, generation), "table", jTable);
}
} // namespace rest
