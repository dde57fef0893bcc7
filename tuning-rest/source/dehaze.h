#pragma once

#include "tuning-rest/source/misc.h"

namespace rest
{
/// Removal of haze.
class Dehaze : public Misc
{
public:
    Dehaze& enableGet(bool& isEnable);
    Dehaze& enableSet(bool isEnable);
};
} // namespace rest
