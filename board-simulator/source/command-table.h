#pragma once

#include <functional>
#include <json/json.h>
#include <string>
#include <unordered_map>

namespace board
{

/// What runs a command: reads its arguments from the query and adds its results to the answer. Throws `Failure`.
using Handler = std::function<void(const Json::Value& query, Json::Value& answer)>;

/// The commands that the board can run, by their numbers.
class CommandTable
{
public:
    /// Adds or replaces a command. Throws `std::out_of_range` for one that the wire does not know.
    void add(const std::string& className, const std::string& command, Handler handler);
    /// Runs the command; the answer has `error` 0, or not 0 and a `message`.
    Json::Value run(const Json::Value& query) const;

private:
    std::unordered_map<int64_t, Handler> handlers;
};

} // namespace board
