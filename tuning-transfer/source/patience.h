#pragma once

#include "tuning-common/source/limits.h"

#include <chrono>

namespace t_transfer
{
/// How long a file transfer may stand still, by default one that the user has asked for.
struct Patience
{
    std::chrono::milliseconds first = t_common::limit::transferIdle; ///< until the answer's first byte
    std::chrono::milliseconds next = t_common::limit::transferIdle;  ///< between two bytes of it
};

/// For a file that a page reads to show itself: the window is blocked, and nobody has asked for a transfer.
constexpr Patience pagePatience{t_common::limit::pageFileFirst, t_common::limit::pageFileNext};
} // namespace t_transfer
