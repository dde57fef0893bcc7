#pragma once

#include <string>

namespace board
{

/// The calibration that a board uses when it leaves the factory: a few hundred elements, tables of numbers among them.
std::string calibrationText();

/// The file of the board's exposure, white balance and focus algorithms.
std::string threeAText();

} // namespace board
