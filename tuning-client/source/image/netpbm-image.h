#pragma once

#include "tuning-image/source/netpbm.h"

#include <QImage>

/// The picture as it is shown, in Format_RGB32; null where there is no memory for it.
QImage netpbmImage(const Netpbm& netpbm);
