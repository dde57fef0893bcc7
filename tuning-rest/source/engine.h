#pragma once

#include "tuning-rest/source/abstract.h"

namespace rest
{
/// Base of the ISP engine modules. A command's number is its module's number times `Step` plus 1, 2, 3 and so on.
class Engine : public Abstract
{
public:
    enum
    {
        Begin = 40000,
        Ae,
        Af,
        Ahdr,
        Avs,
        Awb,
        Bls,
        Ca,
        Cac,
        Cnr,
        Cnr2,
        Cproc,
        Dci,
        DeMosaic,
        Dg,
        Dnr2,
        Dnr3,
        Dpcc,
        Dpf,
        Ee,
        Filter,
        Gc,
        Ge,
        Hdr,
        Ie,
        Lut3d,
        Lsc,
        Reg,
        Rgbir,
        Simp,
        Wb,
        Wdr,
        Roi,
        End,
        Step = 100
    };
};
} // namespace rest
