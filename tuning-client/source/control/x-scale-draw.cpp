#include "tuning-client/source/control/x-scale-draw.h"

#include <cmath>

QwtText XScaleDraw::label(double value) const
{
    // The sum turns minus zero into zero.
    return QwtText(QString::number(std::trunc(value) + 0.0, 'f', 0), QwtText::PlainText);
}
