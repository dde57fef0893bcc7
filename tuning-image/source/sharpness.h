#pragma once

#include "tuning-image/source/samples.h"

#include <QSize>

/// The root mean square of the differences of neighbours to the right and below, over the mean of all samples, so that
/// a brighter picture is no sharper one. Neighbours are samples of one channel; as a mosaic, of one place in its cells.
/// 0 for a black picture and for one that is too small to have neighbours.
double sharpnessGet(const SampleGrid& grid, const QSize& size, bool isMosaic);
