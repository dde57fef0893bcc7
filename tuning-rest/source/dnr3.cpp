#include "tuning-rest/source/dnr3.h"

namespace rest
{
Dnr3& Dnr3::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4001601, generation), "config", config);
}

Dnr3& Dnr3::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4001602, generation), "config", config);
}

Dnr3& Dnr3::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4001603, generation), "enable", isEnable);
}

Dnr3& Dnr3::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4001604, generation), "enable", isEnable);
}

Dnr3& Dnr3::reset(Generation generation) { return send(*this, COMMAND(4001605, generation)); }

Dnr3& Dnr3::statusGet(Status& status, Generation generation)
{
    return readKeys(*this, COMMAND(4001606, generation), exposureStatusKeys, status);
}

Dnr3& Dnr3::tableGet(Json::Value& jTable, Generation generation)
{
    return read(*this, COMMAND(4001607, generation), "table", jTable);
}

Dnr3& Dnr3::tableSet(const Json::Value& jTable, Generation generation)
{
    return write(*this, COMMAND(4001608, generation), "table", jTable);
}
} // namespace rest
