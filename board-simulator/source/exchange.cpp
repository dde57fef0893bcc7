#include "board-simulator/source/exchange.h"

#include "board-simulator/source/spoil.h"
#include "board-wire/source/failure.h"

namespace board
{

Reply Exchange::command(Request request)
{
    std::lock_guard lock(mutex);
    Json::Value answer;
    try
    {
        request.query = json.parse(request.body);
    }
    catch (const Failure& failure)
    {
        answer["error"] = 1;
        answer["message"] = failure.what();
    }
    if (request.query.isObject() && request.query["id"].isInt64())
        request.id = request.query["id"].asInt64();
    const int64_t id = request.id;
    const Json::Value query = request.query;
    log.add(std::move(request));

    Reply reply;
    reply.fault = faults.take(id);
    if (answer.isNull())
        answer = run(query, id, reply.fault);
    reply.text = json.write(answer);
    if (reply.fault)
        spoil(*reply.fault, reply.text);
    return reply;
}

Json::Value Exchange::run(const Json::Value& query, int64_t id, const std::optional<Fault>& fault)
{
    const bool isRun = !fault || !isRefused(*fault);
    Json::Value answer = isRun ? board.execute(query) : Json::Value(Json::objectValue);
    auto found = overrides.find(id);
    if (isRun && found != overrides.end())
    {
        for (const auto& [key, value] : found->second)
        {
            if (value.isNull())
                answer.removeMember(key);
            else
                answer[key] = value;
        }
    }
    if (fault)
        spoil(*fault, answer);
    return answer;
}

void Exchange::answerSet(int64_t id, const std::string& key, const Json::Value& value)
{
    std::lock_guard lock(mutex);
    overrides[id][key] = value;
}

void Exchange::answersClear()
{
    std::lock_guard lock(mutex);
    overrides.clear();
}

} // namespace board
