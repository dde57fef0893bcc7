#pragma once

#include <string>

namespace board
{

/// The handbook of the wire, as Markdown: every command and every record that the board knows.
std::string protocolDocument();

} // namespace board
