#pragma once

#include "board-simulator/source/files.h"

namespace board
{

/// Files that a board has when it leaves the factory: drivers, a picture, a calibration, a 3A file.
void samplesWrite(const Files& files);

} // namespace board
