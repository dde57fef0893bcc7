#include "board-simulator/source/module.h"

#include "board-simulator/source/base64.h"
#include "board-simulator/source/failure.h"

#include <set>

namespace board
{

namespace
{

bool isEnvelope(const std::string& key)
{
    static const std::set<std::string> keys{"function", "generation", "id", "path"};
    return keys.count(key) != 0;
}

bool isSameKind(const Json::Value& left, const Json::Value& right)
{
    return left.type() == right.type() || (left.isNumeric() && right.isNumeric());
}

std::string recordDecode(const Json::Value& query, const std::string& key)
{
    const Json::Value& value = query[key];
    auto bytes = value.isString() ? base64Decode(value.asString()) : std::nullopt;
    if (!bytes)
    {
        throw Failure(key + " is not Base64");
    }
    return *bytes;
}

} // namespace

Group::Group(const Json::Value& start)
{
    for (const std::string& key : start.getMemberNames())
    {
        const Json::Value& value = start[key];
        if (value.isObject() && value.isMember("record"))
        {
            const Record& record = Wire::instance().record(value["record"].asString());
            RecordBytes bytes(record, record.layout(value["layout"].asString()), value["values"]);
            values.emplace(key, RecordValue{std::move(bytes), value["optional"].asBool()});
        }
        else
        {
            values.emplace(key, value);
        }
    }
}

void Group::write(Json::Value& answer) const
{
    for (const auto& [key, value] : values)
    {
        const auto* pRecord = std::get_if<RecordValue>(&value);
        answer[key] = pRecord ? Json::Value(base64Encode(pRecord->bytes.bytes())) : std::get<Json::Value>(value);
    }
}

void Group::read(const Json::Value& query)
{
    auto next = values;
    for (auto& [key, value] : next)
    {
        auto* pRecord = std::get_if<RecordValue>(&value);
        if (query.isMember(key))
        {
            if (pRecord)
            {
                pRecord->bytes.bytesSet(recordDecode(query, key));
            }
            else if (!isSameKind(std::get<Json::Value>(value), query[key]))
            {
                throw Failure(key + " is of the wrong type");
            }
        }
        else if (pRecord && !pRecord->isOptional)
        {
            throw Failure(key + " is missing");
        }
    }
    bool isEmpty = true;
    for (const std::string& key : query.getMemberNames())
    {
        if (!isEnvelope(key))
        {
            isEmpty = false;
            auto [place, isNew] = next.try_emplace(key, query[key]);
            if (!isNew && std::holds_alternative<Json::Value>(place->second))
            {
                place->second = query[key];
            }
        }
    }
    if (isEmpty)
    {
        throw Failure("The configuration is missing");
    }
    values = std::move(next);
}

bool Group::hasPlain(const std::string& key) const
{
    auto found = values.find(key);
    return found != values.end() && std::holds_alternative<Json::Value>(found->second);
}

void Group::plainSet(const std::string& key, const Json::Value& value) { values[key] = value; }

RecordBytes* Group::record(const std::string& key)
{
    auto found = values.find(key);
    auto* pRecord = found == values.end() ? nullptr : std::get_if<RecordValue>(&found->second);
    return pRecord ? &pRecord->bytes : nullptr;
}

Module::Module(const Json::Value& startValues) : start(startValues) { reset(); }

void Module::reset()
{
    isEnabled = start["enable"].asBool();
    config = Group(start["config"]);
    status = Group(start["status"]);
    table = start["table"];
}

} // namespace board
