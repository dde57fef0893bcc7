#include "board-simulator/source/command-table.h"

#include "board-simulator/source/arguments.h"
#include "board-wire/source/failure.h"
#include "board-wire/source/wire.h"

namespace board
{

void CommandTable::add(const std::string& className, const std::string& command, Handler handler)
{
    handlers[Wire::instance().commandClass(className).id(command)] = std::move(handler);
}

Json::Value CommandTable::run(const Json::Value& query) const
{
    Json::Value answer(Json::objectValue);
    try
    {
        if (!query.isObject())
            throw Failure("Command is not an object");
        if (textArgument(query, "function").empty())
            throw Failure("function is empty");
        const int64_t id = integerArgument(query, "id");
        auto found = handlers.find(id);
        if (found == handlers.end())
            throw Failure("Unknown command: " + std::to_string(id));
        found->second(query, answer);
        answer["error"] = 0;
    }
    catch (const std::exception& exception)
    {
        answer = Json::Value(Json::objectValue);
        answer["error"] = 1;
        answer["message"] = exception.what();
    }
    return answer;
}

} // namespace board
