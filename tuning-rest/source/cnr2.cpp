#include "tuning-rest/source/cnr2.h"

namespace rest
{
namespace
{
constexpr auto configKeys = [](auto& config, const auto& field)
{
    field("enable_y", config.ynr_enable);
    field("enable_c", config.cnr_enable);
    field("cSigmaLayer0", config.c_sigma_layer[0]);
    field("cSigmaLayer1", config.c_sigma_layer[1]);
    field("cSigmaLayer2", config.c_sigma_layer[2]);
    field("cSigmaLayer3", config.c_sigma_layer[3]);
    field("cSigmaMerge0", config.c_sigma_merge[0]);
    field("cSigmaMerge1", config.c_sigma_merge[1]);
    field("cSigmaMerge2", config.c_sigma_merge[2]);
    field("ySigma", config.y_sigma);
    field("bit", config.bit);
    field("cnrStrength1", config.cnr_strength1);
    field("cnrStrength2", config.cnr_strength2);
    field("ynrStrength1", config.ynr_strength1);
    field("ynrStrength2", config.ynr_strength2);
    field("textureMask", config.texture_mask_select);
};
} // namespace

Cnr2& Cnr2::configGet(Config& config) { return readKeys(*this, COMMAND(4001001), configKeys, config); }

Cnr2& Cnr2::configSet(const Config& config) { return writeKeys(*this, COMMAND(4001002), configKeys, config); }

Cnr2& Cnr2::reset() { return send(*this, COMMAND(4001003)); }
} // namespace rest
