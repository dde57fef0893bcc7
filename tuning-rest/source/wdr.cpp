#include "tuning-rest/source/wdr.h"

#include <stdexcept>

namespace rest
{
namespace
{
constexpr auto configKeysV2 = [](auto& config, const auto& field) { field("strength", config.strength); };

constexpr auto configKeysV3 = [](auto& config, const auto& field)
{
    field("auto", config.isAuto);
    field("auto.level", config.autoLevel);
    field("gain.max", config.gainMax);
    field("strength", config.strength);
    field("strength.global", config.strengthGlobal);
};

constexpr auto configKeysV4 = [](auto& config, const auto& field)
{
    field("auto", config.isAuto);
    field("auto.level", config.autoLevel);
    field("contrast", config.contrast);
    field("flat.strength", config.flatStrength);
    field("flat.threshold", config.flatThreshold);
    field("strength", config.strength);
    field("strength.high", config.strengthHigh);
    field("strength.low", config.strengthLow);
    field("strength.global", config.strengthGlobal);
};

constexpr auto configKeysV5 = [](auto& config, const auto& field)
{
    field("auto", config.isAuto);
    field("auto.level", config.autoLevel);
    field("flat", config.isFlat);
    field("globalCureveMode", config.isGlobalCureve);
    field("strength", config.strength);
    field("strength.high", config.highStrength);
    field("strength.low", config.lowStrength);
    field("contrast", config.contrast);
    field("flat.level", config.flatLevel);
    field("entropy.slope", config.entropySlope);
    field("entropy.base", config.entropyBase);
    field("flat.globalLevel", config.flatLevelGlobal);
    field("fixedWeight", config.fixedWeight);
    field("gain.max", config.maxGain);
    field("gain.min", config.minGain);
    field("degamma", config.degamma);
    field("diff.high", config.diffHigh);
    field("diff.low", config.diffLow);
    field("weight.log", config.logWeight);
    field("sat.range", config.satRange);
    field("sat.threshold_upGain", config.satThrGainUp);
    field("sat.threshold_downGain", config.satThrGainDown);
};

[[noreturn]] void fail(Wdr::Generation generation)
{
    throw std::logic_error("Wide dynamic range has no generation " + std::to_string(generation));
}
} // namespace

Wdr& Wdr::configGet(Config& config, Generation generation)
{
    const auto command = COMMAND(4003101, generation);
    switch (generation)
    {
    case V1:
        return read(*this, command, "curve", config);
    case V2:
        return readKeys(*this, command, configKeysV2, config.v2);
    case V3:
        return readKeys(*this, command, configKeysV3, config.v3);
    case V4:
        return readKeys(*this, command, configKeysV4, config.v4);
    case V5:
        return readKeys(*this, command, configKeysV5, config.v5);
    default:
        fail(generation);
    }
}

Wdr& Wdr::configSet(const Config& config, Generation generation)
{
    auto command = COMMAND(4003102, generation);
    switch (generation)
    {
    case V1:
        return write(*this, command, "curve", config);
    case V2:
        return writeKeys(*this, command, configKeysV2, config.v2);
    case V3:
        return writeKeys(*this, command.with("config", config), configKeysV3, config.v3);
    case V4:
        return writeKeys(*this, command, configKeysV4, config.v4);
    case V5:
        return writeKeys(*this, command, configKeysV5, config.v5);
    default:
        fail(generation);
    }
}

Wdr& Wdr::enableGet(bool& isEnable, Generation generation)
{
    return read(*this, COMMAND(4003103, generation), "enable", isEnable);
}

Wdr& Wdr::enableSet(bool isEnable, Generation generation)
{
    return write(*this, COMMAND(4003104, generation), "enable", isEnable);
}

Wdr& Wdr::reset(Generation generation) { return send(*this, COMMAND(4003105, generation)); }

Wdr& Wdr::statusGet(Status& status, Generation generation)
{
    return readKeys(*this, COMMAND(4003106, generation), exposureStatusKeys, status);
}

Wdr& Wdr::tableGet(Json::Value& jTable, Generation generation)
{
    return read(*this, COMMAND(4003107, generation), "table", jTable);
}

Wdr& Wdr::tableSet(const Json::Value& jTable, Generation generation)
{
    return write(*this, COMMAND(4003108, generation), "table", jTable);
}
} // namespace rest
