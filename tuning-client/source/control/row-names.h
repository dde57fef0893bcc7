#pragma once

/// Object names by which the parts of all rows of a page are found, to stand in the same columns.
namespace row
{
constexpr auto label = "row-label";
constexpr auto value = "row-value"; ///< the spin box at the end of a slider's row
} // namespace row
