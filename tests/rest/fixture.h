#pragma once

#include "tests/rest/services.h"

#include "board-simulator/source/json-text.h"
#include "board-simulator/source/keys.h"
#include "board-simulator/source/record-bytes.h"
#include "board-simulator/source/simulator.h"
#include "tests/rest/random-values.h"
#include "tuning-transfer/source/transfer-client.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <set>
#include <sstream>
#include <tuple>
#include <unistd.h>
#include <vector>

/// A simulated board with the command layer connected to it over HTTP, in a working directory of its own.
class BoardConnection : public testing::Test
{
protected:
    BoardConnection() : home(std::filesystem::current_path())
    {
        base = std::filesystem::temp_directory_path() / ("rest-test-" + std::to_string(getpid()));
        std::filesystem::create_directories(base);
        std::filesystem::current_path(base);
        pSimulator = std::make_unique<board::Simulator>(board::Options{0, (base / "board").string(), true});
        Json::Value jConfig;
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = std::to_string(pSimulator->port());
        pHolder = std::make_unique<t_transfer::ClientHolder>(
            t_transfer::ClientHolder::Http, [](const std::string&) {}, jConfig);
        rest::Abstract::clientHolderSet(*pHolder);
        pOutput = std::cout.rdbuf(output.rdbuf());
    }

    ~BoardConnection() override
    {
        std::cout.rdbuf(pOutput);
        rest::Abstract::clientHolderForget(*pHolder);
        pSimulator.reset();
        std::filesystem::current_path(home);
        std::filesystem::remove_all(base);
    }

    /// Makes a call and expects exactly one command of it, with these arguments and this envelope.
    void expectRequest(const std::string& className, const std::string& command, const std::string& generation,
                       const Json::Value& arguments, const std::function<void()>& call)
    {
        SCOPED_TRACE(className + "::" + command + " " + generation);
        output.str({});
        pSimulator->requestsClear();
        ASSERT_NO_THROW(call());
        const auto& commandClass = board::Wire::instance().commandClass(className);
        auto expected = arguments;
        expected["function"] = "rest::" + className + "::" + command;
        expected["id"] = static_cast<Json::Int64>(commandClass.id(command));
        if (!generation.empty())
            expected["generation"] = commandClass.generations.at(generation);
        const auto requests = pSimulator->requests();
        ASSERT_FALSE(requests.empty());
        const auto body = json.write(expected);
        EXPECT_EQ(json.write(json.parse(requests[0].body)), json.write(json.parse(body)));
        // Reals have more than one text.
        const auto isReal = [](const Json::Value& value) { return value.type() == Json::realValue; };
        if (std::none_of(arguments.begin(), arguments.end(), isReal))
        {
            EXPECT_EQ(requests[0].body, body);
        }
        EXPECT_EQ(pSimulator->count(commandClass.id(command)), 1u);
        commandsSent.emplace(className, command, generation);
    }

    template <class S, class... G>
    friend class Service;

    std::filesystem::path base;
    std::filesystem::path home;
    std::unique_ptr<board::Simulator> pSimulator;
    std::unique_ptr<t_transfer::ClientHolder> pHolder;
    std::ostringstream output;
    std::streambuf* pOutput;
    board::JsonText json;
    RandomValues random;
    /// Class, command, generation.
    std::set<std::tuple<std::string, std::string, std::string>> commandsSent;
};

/// A key that carries one field of a plain configuration.
template <class C>
struct PlainField
{
    std::string key;
    std::function<Json::Value(C&, RandomValues&)> randomise; ///< sets the field and returns it as it travels
    std::function<Json::Value(const C&)> read;
};

template <class T>
Json::Value jsonOf(const T& value)
{
    if constexpr (std::is_same_v<T, rest::Flag>)
        return bool(value);
    else if constexpr (rest::isRecord<T>)
        return board::base64Encode(std::string(reinterpret_cast<const char*>(&value), sizeof value));
    else
        return value;
}

template <class T>
void randomise(T& value, RandomValues& random, const std::string& record)
{
    if constexpr (std::is_same_v<T, std::string>)
        value = random.text(40);
    else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, rest::Flag>)
        value = random.below(2) == 1;
    else if constexpr (rest::isRecord<T>)
    {
        const auto bytes = random.record(board::Wire::instance().record(record));
        ASSERT_EQ(bytes.size(), sizeof value);
        std::memcpy(static_cast<void*>(&value), bytes.data(), sizeof value);
    }
    else if constexpr (std::is_enum_v<T>)
        value = static_cast<T>(random.number<std::underlying_type_t<T>>());
    else
        value = random.number<T>();
}

/// The keys of a plain configuration. Built key by key: compilers take minutes for a long list of such elements.
template <class C>
class PlainFields : public std::vector<PlainField<C>>
{
public:
    /// `access` gives the field of a configuration; `record` names what it holds on the wire, where it is a record.
    template <class Access>
    PlainFields& with(const char* key, Access access, const char* record = "")
    {
        this->push_back({key,
                         [=](C& config, RandomValues& random)
                         {
                             randomise(access(config), random, record);
                             return jsonOf(access(config));
                         },
                         [=](const C& config) { return jsonOf(access(config)); }});
        return *this;
    }

    template <class M>
    PlainFields& add(const char* key, M C::*pMember, const char* record = "")
    {
        return with(
            key, [=](auto& config) -> auto& { return config.*pMember; }, record);
    }

    /// The same for a field of a union's member.
    template <class V, class M>
    PlainFields& add(const char* key, V C::*pVariant, M V::*pMember)
    {
        return with(
            key, [=](auto& config) -> auto& { return config.*pVariant.*pMember; });
    }
};

/// Sends the commands of a class in one generation, each several times with other values, and compares what travels.
template <class S, class... G>
class Service
{
public:
    Service(BoardConnection& test_, const std::string& name_, const std::string& generation_, G... numbers_)
        : test(test_), name(name_), generation(generation_), numbers(numbers_...)
    {
    }

    template <class T>
    Service& reads(const std::string& command, S& (S::*pMethod)(T&, G...), const std::string& key,
                   const std::string& record = {})
    {
        for (int i = 0; i < repetitions; ++i)
        {
            T sent{};
            T received{};
            Json::Value jSent;
            if constexpr (std::is_same_v<T, Json::Value>)
                jSent = sent = table();
            else
            {
                randomise(sent, test.random, record);
                jSent = jsonOf(sent);
            }
            test.pSimulator->answerSet(idOf(command), key, jSent);
            test.expectRequest(name, command, generation, Json::objectValue, [&] { call(pMethod, received); });
            if constexpr (std::is_same_v<T, Json::Value>)
                EXPECT_EQ(received, sent);
            else
                EXPECT_EQ(jsonOf(received), jSent);
            if constexpr (rest::isRecord<T>)
                expectFields(received, record);
        }
        test.pSimulator->answersClear();
        return *this;
    }

    template <class T>
    Service& writes(const std::string& command, S& (S::*pMethod)(T, G...), const std::string& key,
                    const std::string& record = {})
    {
        for (int i = 0; i < repetitions; ++i)
        {
            std::remove_const_t<std::remove_reference_t<T>> sent{};
            Json::Value arguments(Json::objectValue);
            if constexpr (std::is_same_v<T, const Json::Value&>)
                arguments[key] = sent = table();
            else
            {
                randomise(sent, test.random, record);
                arguments[key] = jsonOf(sent);
            }
            test.expectRequest(name, command, generation, arguments, [&] { call(pMethod, sent); });
        }
        return *this;
    }

    Service& sends(const std::string& command, S& (S::*pMethod)(G...))
    {
        test.expectRequest(name, command, generation, Json::objectValue,
                           [&] { std::apply([&](auto... n) { (S().*pMethod)(n...); }, numbers); });
        return *this;
    }

    template <class C>
    Service& readsPlain(const std::string& command, S& (S::*pMethod)(C&, G...), const PlainFields<C>& fields)
    {
        for (int i = 0; i < repetitions; ++i)
        {
            auto sent = fresh<C>();
            auto received = fresh<C>();
            for (const auto& field : fields)
                test.pSimulator->answerSet(idOf(command), field.key, field.randomise(sent, test.random));
            test.expectRequest(name, command, generation, Json::objectValue, [&] { call(pMethod, received); });
            for (const auto& field : fields)
                EXPECT_EQ(field.read(received), field.read(sent)) << name << " " << field.key;
        }
        test.pSimulator->answersClear();
        return *this;
    }

    template <class C>
    Service& writesPlain(const std::string& command, S& (S::*pMethod)(const C&, G...), const PlainFields<C>& fields)
    {
        for (int i = 0; i < repetitions; ++i)
        {
            auto sent = fresh<C>();
            Json::Value arguments(Json::objectValue);
            for (const auto& field : fields)
                field.randomise(sent, test.random);
            for (const auto& field : fields)
                arguments[field.key] = field.read(sent);
            test.expectRequest(name, command, generation, arguments, [&] { call(pMethod, sent); });
        }
        return *this;
    }

    // The shapes that most classes share.
    Service& config(const std::string& record = {})
    {
        const auto wire = record.empty() ? "rest::" + name + "::Config" : record;
        return reads("configGet", &S::configGet, "config", wire).writes("configSet", &S::configSet, "config", wire);
    }
    template <class T = S>
    Service& config(const PlainFields<typename T::Config>& fields)
    {
        return readsPlain("configGet", &S::configGet, fields).writesPlain("configSet", &S::configSet, fields);
    }
    Service& enable()
    {
        return reads("enableGet", &S::enableGet, "enable").writes("enableSet", &S::enableSet, "enable");
    }
    Service& reset() { return sends("reset", &S::reset); }
    Service& status() { return reads("statusGet", &S::statusGet, "status", "rest::" + name + "::Status"); }
    Service& exposureStatus()
    {
        using Status = typename S::Status;
        return readsPlain<Status>(
            "statusGet", &S::statusGet,
            PlainFields<Status>().add("gain", &Status::gain).add("integration.time", &Status::integrationTime));
    }
    Service& tables() { return reads("tableGet", &S::tableGet, "table").writes("tableSet", &S::tableSet, "table"); }

private:
    static constexpr int repetitions = 5;

    /// Zero everywhere, so that what no key touches is equal on both sides.
    template <class C>
    static C fresh()
    {
        if constexpr (std::is_union_v<C>)
            return rest::recordZero<C>();
        else
            return C();
    }

    template <class M, class T>
    void call(M pMethod, T& value)
    {
        std::apply([&](auto... n) { (S().*pMethod)(value, n...); }, numbers);
    }

    int64_t idOf(const std::string& command) { return board::Wire::instance().commandClass(name).id(command); }

    Json::Value table()
    {
        Json::Value jTable;
        jTable["columns"][0] = "gain";
        jTable["rows"][0][0] = static_cast<Json::UInt64>(UINT64_MAX);
        jTable["rows"][0][1] = static_cast<Json::Int64>(INT64_MIN);
        jTable["rows"][1][0] = DBL_MAX;
        jTable["rows"][1][1] = test.random.text(20);
        jTable["rows"][1][2] = Json::Value();
        return jTable;
    }

    /// What the program reads in each field is what the board means by its bytes.
    template <class T>
    void expectFields(const T& received, const std::string& recordName)
    {
        const auto& record = board::Wire::instance().record(recordName);
        const auto leaves = layout::leaves(*layout::recordFind(recordName));
        for (const auto& wireLayout : record.layouts)
        {
            board::RecordBytes bytes(record, wireLayout);
            bytes.bytesSet(std::string(reinterpret_cast<const char*>(&received), sizeof received));
            for (const auto& field : wireLayout.fields)
            {
                const auto* pLeaf = layout::leafFind(leaves, wireLayout.name, field.name);
                ASSERT_NE(pLeaf, nullptr) << field.name;
                for (size_t i = 0; i < field.elementCount(); ++i)
                {
                    const auto expected = bytes.number(field.name, i);
                    const auto number = pLeaf->number(pLeaf->address(&received), i);
                    const bool isEqual =
                        number == expected || (std::isnan(number) && std::isnan(expected)) ||
                        (field.type == "enum" && static_cast<int32_t>(static_cast<uint32_t>(number)) == expected) ||
                        (field.type == "char" && static_cast<uint8_t>(static_cast<int>(number)) == expected);
                    EXPECT_TRUE(isEqual) << recordName << " " << field.name << " " << number << " " << expected;
                }
            }
        }
    }

    BoardConnection& test;
    std::string name;
    std::string generation;
    std::tuple<G...> numbers;
};
