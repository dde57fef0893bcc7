#include "board-simulator/source/request-log.h"

namespace board
{

namespace
{

constexpr size_t bytesMax = 64u << 20;

/// The parsed query takes about as much again as its text, and each request something by itself.
size_t costOf(const Request& request) { return 1024 + request.head.size() + 2 * request.body.size(); }

} // namespace

void RequestLog::add(Request request)
{
    std::lock_guard lock(mutex);
    if (tell)
        tell(request);
    ++total;
    ++counts[request.id];
    bytes += costOf(request);
    list.push_back(std::move(request));
    while (bytes > bytesMax && list.size() > 1)
    {
        bytes -= costOf(list.front());
        list.pop_front();
    }
}

std::vector<Request> RequestLog::requests() const
{
    std::lock_guard lock(mutex);
    return {list.begin(), list.end()};
}

size_t RequestLog::count() const
{
    std::lock_guard lock(mutex);
    return total;
}

size_t RequestLog::count(int64_t id) const
{
    std::lock_guard lock(mutex);
    auto found = counts.find(id);
    return found == counts.end() ? 0 : found->second;
}

void RequestLog::clear()
{
    std::lock_guard lock(mutex);
    list.clear();
    counts.clear();
    total = 0;
    bytes = 0;
}

} // namespace board
