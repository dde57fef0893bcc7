#pragma once

#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/session.h"

namespace tool
{
/// Throws `Failure` with that code unless it is columns of texts and rows of numbers, no longer than the window's
/// editor takes.
void tableCheck(const Json::Value& jTable, Exit code);

/// The table of a module, checked.
Json::Value tableRead(Session& session, const CommandShape& reader);
} // namespace tool
