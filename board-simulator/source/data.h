#pragma once

namespace board
{

/// The data files of the simulated board, as text: start values, services, and the beginning of the handbook.
extern const char* const modulesText;
extern const char* const servicesText;
extern const char* const handbookText;

} // namespace board
