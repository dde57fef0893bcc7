#pragma once

#include "tuning-tool/source/snapshot.h"

#include <vector>

namespace tool
{
/// A place that both sides have changed, each in another way, or that one of them has no longer.
struct Conflict
{
    std::string place; ///< such as "Wb.config wbGains.Red"
    Json::Value base;  ///< null where it is not there
    Json::Value mine;
    Json::Value theirs;
};

/// What has become of `base` on both sides. Where there are conflicts the result has the values of `base`.
struct Merged
{
    Snapshot snapshot;
    std::vector<Conflict> conflicts;
};

Merged merged(const Snapshot& base, const Snapshot& mine, const Snapshot& theirs);
} // namespace tool
