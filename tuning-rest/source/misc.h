#pragma once

#include "tuning-rest/source/abstract.h"

namespace rest
{
/// Base of the miscellaneous modules, numbered like those of `Engine`.
class Misc : public Abstract
{
public:
    enum
    {
        Begin = 70000,
        Dehaze,
        End,
        Step = 100
    };
};
} // namespace rest
