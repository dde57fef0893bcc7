#include "tuning-rest/source/hdr.h"

namespace rest
{
Hdr& Hdr::configGet(Config& config, Generation generation)
{
    return read(*this, COMMAND(4002301, generation), "config", config);
}

Hdr& Hdr::configSet(const Config& config, Generation generation)
{
    return write(*this, COMMAND(4002302, generation), "config", config);
}

Hdr& Hdr::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4002303, generation), "enable", isEnable);
}

Hdr& Hdr::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4002304, generation), "enable", isEnable);
}

Hdr& Hdr::reset(Generation generation) { return send(*this, COMMAND(4002305, generation)); }

Hdr& Hdr::statusGet(Status& status, Generation generation)
{
    Json::Value jResponse;
    request(COMMAND(4002306, generation).query(), jResponse, TimeoutDefault);
    if (jResponse.isMember("status"))
        answerGet(jResponse, "status", status);
    return *this;
}
} // namespace rest
