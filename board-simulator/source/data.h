#pragma once

namespace board
{

/// The data files of the simulated board, as text: numbers and record layouts, keys of commands,
/// start values, services; and the beginning of the handbook.
extern const char* const wireText;
extern const char* const commandsText;
extern const char* const modulesText;
extern const char* const servicesText;
extern const char* const handbookText;

} // namespace board
