#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Chromatic aberration correction.
class Cac : public Engine
{
public:
    struct Status
    {
        enum Channel
        {
            Blue = 0,
            Red = 1,
            Sum = 2
        };

        struct Coeff
        {
            double linear;
            double square;
            double cubical;
        };

        int32_t hCenterOffset;
        int32_t vCenterOffset;
        Coeff coeff[Sum];
    };

    Cac& enableGet(bool& isEnable);

    /// Takes a reference, unlike its sisters; it is not written.
    Cac& enableSet(bool& isEnable);

    Cac& statusGet(Status& status);
};

RECORD_SIZE(Cac::Status, 56);
RECORD_FIELD(Cac::Status, hCenterOffset, 0);
RECORD_FIELD(Cac::Status, vCenterOffset, 4);
RECORD_FIELD(Cac::Status, coeff[Cac::Status::Blue].linear, 8);
RECORD_FIELD(Cac::Status, coeff[Cac::Status::Blue].square, 16);
RECORD_FIELD(Cac::Status, coeff[Cac::Status::Blue].cubical, 24);
RECORD_FIELD(Cac::Status, coeff[Cac::Status::Red].linear, 32);
RECORD_FIELD(Cac::Status, coeff[Cac::Status::Red].square, 40);
RECORD_FIELD(Cac::Status, coeff[Cac::Status::Red].cubical, 48);
} // namespace rest
