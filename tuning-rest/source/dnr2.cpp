#include "tuning-rest/source/dnr2.h"

namespace rest
{
Dnr2& Dnr2::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4001501, generation), "config", config);
}

Dnr2& Dnr2::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4001502, generation), "config", config);
}

Dnr2& Dnr2::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4001503, generation), "enable", isEnable);
}

Dnr2& Dnr2::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4001504, generation), "enable", isEnable);
}

Dnr2& Dnr2::reset(Generation generation) { return send(*this, COMMAND(4001505, generation)); }

Dnr2& Dnr2::statusGet(Status& status, Generation generation)
{
    return readKeys(*this, COMMAND(4001506, generation), exposureStatusKeys, status);
}

Dnr2& Dnr2::tableGet(Json::Value& jTable, Generation generation)
{
    return read(*this, COMMAND(4001507, generation), "table", jTable);
}

Dnr2& Dnr2::tableSet(const Json::Value& jTable, Generation generation)
{
    return write(*this, COMMAND(4001508, generation), "table", jTable);
}
} // namespace rest
