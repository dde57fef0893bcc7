#pragma once

namespace board
{

/// The data files of the simulated board, as text: commands and record layouts, start values, services.
extern const char* const wireText;
extern const char* const modulesText;
extern const char* const servicesText;

} // namespace board
