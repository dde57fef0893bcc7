#pragma once

#include "board-simulator/source/board.h"
#include "board-simulator/source/request-log.h"
#include "board-wire/source/json-text.h"

#include <mutex>
#include <optional>
#include <string>

namespace board
{

/// The text of an answer, and the fault that its way over the line has to suffer.
struct Reply
{
    std::string text;
    std::optional<Fault> fault;
};

/// Takes the text of a command to the text of its answer: records, runs, overrides, spoils. Knows no line, so that each
/// kind of line can use it. Thread-safe.
class Exchange
{
public:
    Exchange(Board& target, RequestLog& requestLog, Faults& lineFaults)
        : board(target), log(requestLog), faults(lineFaults)
    {
    }

    /// The command is the body of the request.
    Reply command(Request request);
    /// A file on its way, in the direction that the request's `id` tells.
    void record(Request request) { log.add(std::move(request)); }
    std::optional<Fault> fault(int64_t id) { return faults.take(id); }

    void answerSet(int64_t id, const std::string& key, const Json::Value& value);
    void answersClear();

private:
    Json::Value run(const Json::Value& query, int64_t id, const std::optional<Fault>& fault);

    Board& board;
    RequestLog& log;
    Faults& faults;
    std::mutex mutex;
    JsonText json;
    std::map<int64_t, std::map<std::string, Json::Value>> overrides;
};

} // namespace board
