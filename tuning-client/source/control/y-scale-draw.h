#pragma once

#include <qwt_scale_draw.h>

/// Whole numbers on the left axis of the histogram.
class YScaleDraw : public QwtScaleDraw
{
public:
    QwtText label(double value) const override;
};
