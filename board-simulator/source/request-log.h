#pragma once

#include "board-simulator/source/fault.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <json/json.h>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace board
{

/// One request as it came in.
struct Request
{
    /// Everything up to and with the empty line; empty, as method and target are, for what came over the serial line.
    std::string head;
    std::string method;
    std::string target;
    /// The body; of an uploaded file the first 64 KiB.
    std::string body;
    /// Bytes of the whole body.
    uint64_t bodySize = 0;
    /// The number of a command, `Fault::Upload`, `Fault::Download`, or 0 for what is none of these.
    int64_t id = 0;
    /// The command.
    Json::Value query;
};

/// All requests since the start or the last clearing. The counts are of all of them; of the requests themselves the
/// last ones are kept, up to 64 MiB. Thread-safe.
class RequestLog
{
public:
    /// `fTell` is told of each request, one after the other, on the thread that it came in on; it may be empty.
    explicit RequestLog(std::function<void(const Request&)> fTell) : tell(std::move(fTell)) {}

    void add(Request request);
    std::vector<Request> requests() const;
    size_t count() const;
    size_t count(int64_t id) const;
    void clear();

private:
    const std::function<void(const Request&)> tell;
    mutable std::mutex mutex;
    std::deque<Request> list;
    std::map<int64_t, size_t> counts;
    size_t total = 0;
    size_t bytes = 0;
};

} // namespace board
