#pragma once

#include "tuning-transfer/source/http/time-limit.h"
#include "tuning-transfer/source/http/url.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace t_transfer::http
{
/// One request and its answer on a connection of its own.
struct Exchange
{
    /// Fills a buffer with the next bytes and gives their number, 0 at the end.
    using Source = std::function<std::size_t(char* pData, std::size_t size)>;
    using Sink = std::function<void(const char* pData, std::size_t size)>;

    Url url;
    std::string request; ///< the head, and the body where it is short
    Source fSource;      ///< the body where it is streamed
    Sink fSink;          ///< takes the answer's body in pieces
    std::uint64_t bodyLimit;

    /// Returns when the answer is complete, whatever its status; throws `t_common::NoAnswer` when there is none and
    /// `std::runtime_error` for one that can't be read.
    void run(const TimeLimit& limit) const;
};
} // namespace t_transfer::http
