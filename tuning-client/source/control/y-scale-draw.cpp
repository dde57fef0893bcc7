#include "tuning-client/source/control/y-scale-draw.h"

#include <cmath>

QwtText YScaleDraw::label(double value) const
{
    // The sum turns minus zero into zero.
    return QwtText(QString::number(std::trunc(value) + 0.0, 'f', 0), QwtText::PlainText);
}
