#include "tests/rest/record-layout.h"

#include "tests/rest/all-commands.h"
#include "tests/tool/program.h"

#include <array>
#include <cstring>

namespace
{
std::string textOf(const Json::Value& value)
{
    return value.isString() ? value.asString() : t_common::JsonApp::toString(value, "");
}

/// A record with other values in its fields, laid out by the client's own header.
struct Sample
{
    Json::Value values{Json::objectValue}; ///< by the names of fields
    std::string bytes;
};

/// A value of its own for each element, in nested lists.
Json::Value valueMake(const board::Field& field, size_t dimension, int& seed)
{
    const bool isText = field.type == "char" && dimension + 1 == field.shape.size();
    Json::Value list(Json::arrayValue);
    for (size_t i = 0; !isText && dimension < field.shape.size() && i < field.shape[dimension]; ++i)
        list.append(valueMake(field, dimension + 1, seed));
    seed = (seed + 7) % 101;
    if (!list.empty())
        return list;
    if (isText)
        return "text " + std::to_string(seed);
    if (field.type == "bool")
        return seed % 2 == 1;
    return field.type == "float" || field.type == "double" ? Json::Value(seed + 0.25) : Json::Value(seed);
}

/// Writes the elements one behind the other, from `offset` on.
void bytesSet(std::string& bytes, size_t& offset, const layout::Field& leaf, const Json::Value& value)
{
    const auto put = [&](const void* pSource, size_t size)
    {
        std::memcpy(bytes.data() + offset, pSource, size);
        offset += size;
    };
    const auto number = static_cast<uint64_t>(value.isNumeric() || value.isBool() ? value.asDouble() : 0);
    if (value.isArray())
        for (const auto& element : value)
            bytesSet(bytes, offset, leaf, element);
    else if (value.isString())
        put((value.asString() + std::string(leaf.shape.back(), '\0')).data(), leaf.shape.back());
    else if (leaf.type == "float")
        put(std::array{value.asFloat()}.data(), sizeof(float));
    else if (leaf.type == "double")
        put(std::array{value.asDouble()}.data(), sizeof(double));
    else
        put(&number, leaf.elementSize);
}

/// As many samples as it takes for every field to stand in one where no other one has its bytes.
std::vector<Sample> samplesMake(const board::Record& record, const std::string& generation)
{
    const auto* pKnown = layout::recordFind(record.name);
    if (!pKnown)
    {
        // A bare array is no structure of the client's.
        EXPECT_EQ(record.layout().fields.front().name, "") << "the client has no record " << record.name;
        return {};
    }
    const auto isMeant = [&](const board::Layout& wire)
    { return std::regex_match(wire.name, std::regex(generation, std::regex::icase)); };
    const auto found = std::find_if(record.layouts.begin(), record.layouts.end(), isMeant);
    const auto& wire = found == record.layouts.end() ? record.layouts.front() : *found;
    const auto leaves = layout::leaves(pKnown->first);
    std::vector<Sample> samples;
    std::vector<std::vector<bool>> taken;
    int seed = 0;
    for (const auto& field : wire.fields)
    {
        const auto& leaf = *layout::leafFind(leaves, wire.name, field.name);
        const auto size = field.elementSize() * field.elementCount();
        size_t i = 0;
        while (i < taken.size() &&
               std::count(taken[i].begin() + long(leaf.offset), taken[i].begin() + long(leaf.offset + size), true) > 0)
            ++i;
        if (i == taken.size())
        {
            taken.emplace_back(record.size);
            samples.emplace_back().bytes.resize(record.size);
        }
        std::fill_n(taken[i].begin() + long(leaf.offset), size, true);
        auto offset = leaf.offset;
        bytesSet(samples[i].bytes, offset, leaf, samples[i].values[field.name] = valueMake(field, 0, seed));
    }
    return samples;
}

/// Gives the program what the client has just sent.
class ToolCommands : public Commands
{
protected:
    Ended call(const std::string& name, const std::string& generation, std::vector<std::string> tail)
    {
        tail.insert(tail.begin(), {"--board", "127.0.0.1:" + std::to_string(board->port()), "--json", "call", name});
        if (!generation.empty())
            tail.insert(tail.end(), {"--generation", generation});
        board->requestsClear();
        return toolRun(tail);
    }

    void sent(const std::string& name, const std::string& generation, const Json::Value& query) override
    {
        std::vector<std::string> tail;
        for (const auto& key : query.getMemberNames())
            if (key != "function" && key != "id" && key != "generation")
                tail.push_back(key + "=" + textOf(query[key]));
        const auto run = call(name, generation, tail);
        // Answered, though what the client has removed is gone.
        EXPECT_LE(run.code, 1) << run.err;
        ASSERT_EQ(board->requestCount(), 1u) << run.err;
        EXPECT_EQ(board->requests()[0].query, query);
    }

    /// Named fields become the record that the client would send.
    void requestCheck(const CommandName& command, const board::Key& record, const Sample& sample)
    {
        std::vector<std::string> tail;
        for (const auto& key : board::Keys::instance().request(command.className, command.name, command.generation))
            if (key.recordName().empty())
                tail.push_back(key.name + "=" + (key.type == "bytes" ? "" : "1"));
        for (const auto& field : sample.values.getMemberNames())
            tail.push_back(record.name + ":" + field + "=" + textOf(sample.values[field]));
        const auto run = call(command.className + "." + command.name, command.generation, tail);
        ASSERT_EQ(board->requestCount(), 1u) << run.err;
        EXPECT_EQ(board->requests()[0].query[record.name], board::base64Encode(sample.bytes));
    }

    /// The client's record becomes named fields.
    void answerCheck(const CommandName& command, const board::Key& record, const Sample& sample)
    {
        const auto id = board::Wire::instance().commandClass(command.className).id(command.name);
        board->answerSet(id, record.name, board::base64Encode(sample.bytes));
        const auto arguments = words(command.name == "load" ? "file.name=chart.pgm is.lsb=1" : "");
        const auto run = call(command.className + "." + command.name, command.generation, arguments);
        ASSERT_EQ(run.code, 0) << run.err;
        const auto read = run.json()[record.name];
        for (const auto& field : sample.values.getMemberNames())
            EXPECT_EQ(textOf(read[field]), textOf(sample.values[field])) << field;
    }
};
} // namespace

TEST_F(ToolCommands, AreThoseOfTheClientInEveryGeneration)
{
    all();
    EXPECT_EQ(commandsSent.size(), allCommands().size());
}

TEST_F(ToolCommands, NameTheFieldsOfTheClientsRecords)
{
    size_t count = 0;
    for (const auto& command : allCommands())
    {
        const auto& [className, name, generation] = command;
        SCOPED_TRACE(className + "." + name + " " + generation);
        const auto each = [&](const std::vector<board::Key>& keys, auto check)
        {
            for (const auto& key : keys)
                if (!key.recordName().empty())
                    for (const auto& sample :
                         samplesMake(board::Wire::instance().record(key.recordName()), command.generation))
                    {
                        check(key, sample);
                        count += sample.values.size();
                    }
        };
        each(board::Keys::instance().request(className, name, generation),
             [&](const auto& key, const auto& sample) { requestCheck(command, key, sample); });
        each(board::Keys::instance().answer(className, name, generation),
             [&](const auto& key, const auto& sample) { answerCheck(command, key, sample); });
    }
    EXPECT_GT(count, 1000u);
}
