#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// How auto focus searches, as the board's driver numbers it.
enum CamEngineAfSearchAlgorithm_t : uint32_t
{
    CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_INVALID = 0,
    CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_FULL_RANGE = 1,
    CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_ADAPTIVE_RANGE = 2,
    CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_HILL_CLIMBING = 3,
    CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_MAX = 4
};

/// Auto focus.
class Af : public Engine
{
public:
    struct Config
    {
        bool isOneshort = false; ///< travels as "oneshot"
        CamEngineAfSearchAlgorithm_t searchAlgorithm = CAM_ENGINE_AUTOFOCUS_SEARCH_ALGORITHM_INVALID;
    };

    /// Whether the board has a focus at all.
    Af& availableGet(bool& isAvailable);

    Af& configGet(Config& config);
    Af& configSet(const Config& config);
    Af& enableGet(bool& isEnable);
    Af& enableSet(bool isEnable);
};
} // namespace rest
