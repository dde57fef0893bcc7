#pragma once

namespace board
{

/// The description of the wire, as text: numbers and record layouts, and the keys of commands.
extern const char* const wireText;
extern const char* const commandsText;

} // namespace board
