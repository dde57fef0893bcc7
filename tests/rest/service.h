#pragma once

#include "board-wire/source/keys.h"
#include "tests/rest/fixture.h"
#include "tests/rest/random-values.h"
#include "tuning-rest/source/record.h"

#include <functional>
#include <set>
#include <sstream>
#include <tuple>

struct CommandName
{
    std::string className;
    std::string name;
    std::string generation;

    bool operator<(const CommandName& other) const
    {
        return std::tie(className, name, generation) < std::tie(other.className, other.name, other.generation);
    }
    bool operator==(const CommandName& other) const { return !(*this < other) && !(other < *this); }
};

/// All that the board knows, in every generation.
inline std::set<CommandName> allCommands()
{
    std::set<CommandName> commands;
    for (const auto& commandClass : board::Wire::instance().classes())
        for (const auto& command : commandClass.commands)
        {
            if (commandClass.generations.empty())
                commands.insert({commandClass.name, command.name, ""});
            for (const auto& generation : commandClass.generations)
                commands.insert({commandClass.name, command.name, generation.first});
        }
    return commands;
}

/// A board whose own description says what commands look like.
class CommandTest : public RestTest
{
protected:
    /// Makes a call and expects exactly one command of it, with these arguments and this envelope.
    void expectRequest(const std::string& className, const std::string& command, const std::string& generation,
                       const Json::Value& arguments, const std::function<void()>& call)
    {
        SCOPED_TRACE(className + "::" + command + " " + generation);
        board->requestsClear();
        ASSERT_NO_THROW(call());
        const auto& commandClass = board::Wire::instance().commandClass(className);
        auto expected = arguments;
        expected["function"] = "rest::" + className + "::" + command;
        expected["id"] = static_cast<Json::Int64>(commandClass.id(command));
        if (!generation.empty())
            expected["generation"] = commandClass.generations.at(generation);
        EXPECT_EQ(board->count(commandClass.id(command)), 1u);
        // Through a text, since integers of two types are never equal.
        const auto text = t_common::JsonApp::toString(expected, "");
        EXPECT_EQ(board->requests().front().query, json(text)) << board->requests().front().body;
        if (commandsSent.insert({className, command, generation}).second)
            sent(className + "." + command, generation, board->requests().front().query);
    }

    /// Is told of each command when it is sent for the first time.
    virtual void sent(const std::string&, const std::string&, const Json::Value&) {}

    template <class S, class... G>
    friend class Service;

    RandomValues random;
    std::set<CommandName> commandsSent;
};

/// Sends the commands of a class in one generation, most of them several times with other values, and compares what
/// travels with the board's description.
template <class S, class... G>
class Service
{
public:
    Service(CommandTest& test_, const std::string& name_, const std::string& generation_, G... numbers_)
        : test(test_), name(name_), generation(generation_), numbers(numbers_...)
    {
    }

    /// What one command reads the other sends back.
    template <class T, class W>
    Service& both(const std::string& get, S& (S::*pGet)(T&, G...), const std::string& set, S& (S::*pSet)(W, G...))
    {
        for (int i = 0; i < repetitions; ++i)
        {
            const auto answered = answerRandom(get);
            auto value = fresh<T>();
            test.expectRequest(name, get, generation, Json::objectValue, [&] { call(pGet, value); });
            Json::Value arguments;
            for (const auto& key : board::Keys::instance().request(name, set, generation))
                arguments[key.name] = answered.isMember(key.name) ? answered[key.name] : jsonOf(value);
            test.expectRequest(name, set, generation, arguments, [&] { call(pSet, value); });
        }
        test.board->answersClear();
        return *this;
    }

    /// A command whose answer has one key, or none and then leaves the value.
    template <class T>
    Service& reads(const std::string& command, S& (S::*pGet)(T&, G...))
    {
        const auto answered = answerRandom(command);
        auto value = fresh<T>();
        const auto expected = answered.empty() ? jsonOf(value) : *answered.begin();
        test.expectRequest(name, command, generation, Json::objectValue, [&] { call(pGet, value); });
        EXPECT_EQ(jsonOf(value), expected);
        test.board->answersClear();
        return *this;
    }

    Service& sends(const std::string& command, S& (S::*pSend)(G...))
    {
        test.expectRequest(name, command, generation, Json::objectValue,
                           [&] { std::apply([&](auto... n) { (S().*pSend)(n...); }, numbers); });
        return *this;
    }

    /// Which key is which field: each in turn has a value and the others have none. `fields` gives all of them, in the
    /// order of the keys.
    template <class T, class Fields>
    Service& means(const std::string& command, S& (S::*pGet)(T&, G...), const std::string& keyNames, Fields fields)
    {
        std::istringstream stream(keyNames);
        const std::vector<std::string> names{std::istream_iterator<std::string>(stream), {}};
        for (size_t i = 0; i < names.size(); ++i)
        {
            std::vector<double> expected(names.size());
            for (const auto& key : board::Keys::instance().answer(name, command, generation))
            {
                const bool isReal = key.type == "float" || key.type == "double";
                if (key.name == names[i])
                    expected[i] = isReal ? 0.5 : 1;
                if (key.recordName().empty())
                    test.board->answerSet(idOf(command), key.name, key.name == names[i] ? expected[i] : 0);
            }
            auto value = fresh<T>();
            test.expectRequest(name, command, generation, Json::objectValue, [&] { call(pGet, value); });
            EXPECT_EQ(fields(value), expected) << name << " " << generation << " " << names[i];
        }
        test.board->answersClear();
        return *this;
    }

    // The shapes that most classes share.
    Service& config() { return both("configGet", &S::configGet, "configSet", &S::configSet); }
    template <class Fields>
    Service& configMeans(const std::string& keyNames, Fields fields)
    {
        return means("configGet", &S::configGet, keyNames, fields);
    }
    Service& enable() { return both("enableGet", &S::enableGet, "enableSet", &S::enableSet); }
    Service& reset() { return sends("reset", &S::reset); }
    Service& status() { return reads("statusGet", &S::statusGet); }
    Service& exposureStatus()
    {
        return means("statusGet", &S::statusGet, "gain integration.time",
                     [](const auto& status) {
                         return std::vector<double>{status.gain, status.integrationTime};
                     });
    }
    Service& tables() { return both("tableGet", &S::tableGet, "tableSet", &S::tableSet); }

private:
    static constexpr int repetitions = 5;

    /// Zero everywhere, so that what no key touches is equal on both sides.
    template <class T>
    static T fresh()
    {
        if constexpr (std::is_union_v<T>)
            return rest::recordZero<T>();
        else
            return T();
    }

    /// A value that travels under one key.
    template <class T>
    static Json::Value jsonOf(const T& value)
    {
        if constexpr (rest::isRecord<T>)
            return board::base64Encode(std::string(reinterpret_cast<const char*>(&value), sizeof value));
        else if constexpr (std::is_convertible_v<T, Json::Value>)
            return value;
        else
            return {};
    }

    template <class M, class T>
    void call(M pMethod, T& value)
    {
        std::apply([&](auto... n) { (S().*pMethod)(value, n...); }, numbers);
    }

    int64_t idOf(const std::string& command) { return board::Wire::instance().commandClass(name).id(command); }

    /// Makes the board answer with other values, and gives them by their keys.
    Json::Value answerRandom(const std::string& command)
    {
        Json::Value answered(Json::objectValue);
        for (const auto& key : board::Keys::instance().answer(name, command, generation))
        {
            answered[key.name] = test.random.value(key);
            test.board->answerSet(idOf(command), key.name, answered[key.name]);
        }
        return answered;
    }

    CommandTest& test;
    std::string name;
    std::string generation;
    std::tuple<G...> numbers;
};
