#pragma once

#include "tuning-rest/source/sensor.h"

#include <QStringList>

/// The colours of a raw picture's pixels, which stand in cells of two rows of two.
namespace mosaic
{
using Pattern = rest::Sensor::Config::BayerPattern;

/// Such as "RGGB"; null for a number that is no pattern.
QString name(Pattern pattern);

/// The channel of each place in a cell, row by row: "R", "Gr" (the green beside red), "Gb" (beside blue), "B". For what
/// is no pattern the places themselves, such as "x1 y0".
QStringList channels(Pattern pattern);

/// Whether a file has its name from a capture of raw samples.
bool isRawCapture(const QString& fileName);
} // namespace mosaic
