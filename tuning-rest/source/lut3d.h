#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// The three-dimensional colour look-up table.
class Lut3d : public Engine
{
public:
    Lut3d& enableGet(bool& isEnable);
    Lut3d& enableSet(bool isEnable);
};
} // namespace rest
