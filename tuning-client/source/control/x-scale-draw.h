#pragma once

#include <qwt_scale_draw.h>

/// Whole numbers on the bottom axis of the histogram.
class XScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override;
};
