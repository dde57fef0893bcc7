#pragma once

#include "tuning-tool/source/options.h"

#include <json/json.h>

namespace tool
{
/// Which board is meant: `type` "http" with `ip` and `port`, or "uart" with `port`. Without a choice on the command
/// line it is the one of the window's stored preferences, which are only read. Throws `Failure`.
Json::Value boardAddress(const Options& options);
} // namespace tool
