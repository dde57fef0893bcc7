#include "tests/simulator/fixture.h"

#include "board-wire/source/keys.h"

#include <algorithm>
#include <set>

namespace
{

using Commands = BoardTest;

/// Calls `action` with each class that has the command, and each of its generations (-1 for none).
template <typename Action>
void eachGeneration(const std::string& command, Action action)
{
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        const auto& commands = commandClass.commands;
        if (std::none_of(commands.begin(), commands.end(), [&](const auto& known) { return known.name == command; }))
            continue;
        const int count = static_cast<int>(commandClass.generations.size());
        for (int generation = count ? 0 : -1; generation < count; ++generation)
        {
            SCOPED_TRACE(commandClass.name + " " + std::to_string(generation));
            action(commandClass.name, generation);
        }
    }
}

std::string firstRecordKey(const Json::Value& answer)
{
    return answer.isMember("curve") ? "curve" : answer["config"].isString() ? "config" : "";
}

void members(Json::Value& target, const Json::Value& source)
{
    for (const auto& name : source.getMemberNames())
        target[name] = source[name];
}

} // namespace

TEST_F(Commands, SettingsStayInTheirGeneration)
{
    const auto checkGeneration = [&](const std::string& name, int generation)
    {
        // Registers are no settings, and the exposure loop writes settings of its own.
        if (name == "Reg" || name == "Ae" || name == "Sensor")
            return;
        Json::Value sent = run(name, "configGet", generation);
        sent.removeMember("error");
        if (sent.empty())
            sent["key"] = 5;
        const std::string key = firstRecordKey(sent);
        if (!key.empty())
        {
            std::string bytes = *board::base64Decode(sent[key].asString());
            bytes.front() = static_cast<char>(bytes.front() + 1 + generation);
            // The last field of one is the board's own.
            bytes.back() = name == "Awb" ? bytes.back() : '\x7f';
            sent[key] = board::base64Encode(bytes);
        }
        Json::Value jQuery = query(name, "configSet", generation);
        members(jQuery, sent);
        ASSERT_EQ(simulator->execute(jQuery)["error"], 0);
        // Whatever was set before in other generations must not have reached this one.
        Json::Value after = run(name, "configGet", generation);
        after.removeMember("error");
        EXPECT_EQ(after, sent);
        if (generation > 0 && !key.empty())
        {
            const Json::Value first = run(name, "configGet", 0);
            EXPECT_NE(first[firstRecordKey(first)], sent[key]);
        }
    };
    eachGeneration("configSet", checkGeneration);
}

TEST_F(Commands, ResetGoesBackToTheStart)
{
    const auto checkReset = [&](const std::string& name, int generation)
    {
        if (name == "Cnr2")
            return;
        const Json::Value before = run(name, "enableGet", generation);
        Json::Value jQuery = query(name, "enableSet", generation);
        jQuery["enable"] = !before["enable"].asBool();
        ASSERT_EQ(simulator->execute(jQuery)["error"], 0);
        EXPECT_NE(run(name, "enableGet", generation), before);
        ASSERT_EQ(run(name, "reset", generation)["error"], 0);
        EXPECT_EQ(run(name, "enableGet", generation), before);
    };
    eachGeneration("reset", checkReset);
}

TEST_F(Commands, BothExposurePagesSpeakOfOneExposureControl)
{
    std::string bytes = simulator->recordGet("Ae", 0);
    bytes[4] = 2;
    simulator->recordSet("Ae", 0, bytes);
    EXPECT_EQ(simulator->recordGet("Ae", 1), bytes);
}

TEST_F(Commands, AnswersHaveTheirKeysInEveryGeneration)
{
    // What services want to be told; modules get back what they have answered.
    fileStore("files/a.pgm", "P5 2 1 255\nab");
    fileStore("files/a.xml", "<calibration/>");
    fileStore("files/a.drv", "driver");
    fileStore("files/b.txt", "text");
    const Json::Value arguments = parse(R"({
        "address": 1024, "value": 7, "block.signal": true, "time": "now", "calib.file": "a.xml", "index": 1,
        "preview": true, "driver.file": "a.drv", "file.name": "a.pgm", "file.extension": "xml", "is.lsb": false,
        "snapshot.type": 3, "lock.type": 7})");
    std::map<std::string, Json::Value> paths{{"list", "."}, {"remove", "b.txt"}};
    const auto checkAnswer = [&](const board::Key& key, const Json::Value& value)
    {
        EXPECT_TRUE(key.isOptional || key.fits(value)) << key.name << value;
        const auto record = key.recordName();
        EXPECT_TRUE(record.empty() ||
                    board::base64Decode(value.asString())->size() == board::Wire::instance().record(record).size)
            << key.name;
        if (key.type == "table")
        {
            EXPECT_GT(value["rows"].size(), 1u);
            for (const Json::Value& row : value["rows"])
                EXPECT_EQ(row.size(), value["columns"].size());
        }
    };
    const auto& keys = board::Keys::instance();
    size_t count = 0;
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        std::map<std::string, int> generations = commandClass.generations;
        if (generations.empty())
            generations[""] = -1;
        for (const auto& [generation, number] : generations)
        {
            Json::Value told = arguments;
            for (const auto& command : commandClass.commands)
            {
                SCOPED_TRACE(commandClass.name + "::" + command.name + " " + generation);
                Json::Value jQuery = query(commandClass.name, command.name, number);
                for (const auto& key : keys.request(commandClass.name, command.name, generation))
                    if (!key.isOptional)
                        jQuery[key.name] = key.name == "path" ? paths[command.name] : told[key.name];
                const Json::Value answer = simulator->execute(jQuery);
                EXPECT_EQ(answer["error"], 0) << answer;
                for (const auto& key : keys.answer(commandClass.name, command.name, generation))
                    checkAnswer(key, answer[key.name]);
                members(told, answer);
                ++count;
            }
        }
    }
    EXPECT_GT(count, 178u);
}

TEST_F(Commands, WrongCommandsAreToldWhatIsWrong)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"([])", "not an object"},
        {R"({"id":4000103,"generation":0})", "function is missing"},
        {R"({"function":"","id":4000103,"generation":0})", "function is empty"},
        {R"({"function":7,"id":4000103,"generation":0})", "function is not a text"},
        {R"({"function":"f"})", "id is missing"},
        {R"({"function":"f","id":"4000103"})", "id is not an integer"},
        {R"({"function":"f","id":4000199})", "Unknown command: 4000199"},
        {R"({"function":"f","id":4000103})", "generation is missing"},
        {R"({"function":"f","id":4000103,"generation":2})", "rest::Ae has no generation 2"},
        {R"({"function":"f","id":4001403,"generation":0})", "rest::Dg has no generations"},
        {R"({"function":"f","id":4001404})", "enable is missing"},
        {R"({"function":"f","id":4001404,"enable":1})", "enable is of the wrong type"},
        {R"({"function":"f","id":4001402,"config":"AAAA"})", "rest::Dg::Config has 8 bytes, not 3"},
        {R"({"function":"f","id":4001402,"config":"AAAAAAAAAAA"})", "config is not Base64"},
        {R"({"function":"f","id":4001402,"config":"AAAA_AAAAAA="})", "config is not Base64"},
        {R"({"function":"f","id":4000602})", "blue is missing"},
        {R"({"function":"f","id":4000602,"blue":70000})", "blue is of the wrong type"},
        {R"({"function":"f","id":10005,"index":2})", "There is no input 2"},
        {R"({"function":"f","id":80006,"address":-1,"value":0})", "address is not an unsigned integer of 32 bits"},
        {R"({"function":"f","id":4002702,"address":1040,"value":1})", "Register 0x00000410 is read only"},
        {R"({"function":"f","id":4002703,"module.id":99})", "There is no register module 99"},
    };
    for (const auto& [text, message] : cases)
    {
        const Json::Value answer = simulator->execute(parse(text));
        EXPECT_NE(answer["error"], 0) << text;
        EXPECT_TRUE(contains(answer["message"].asString(), message)) << text << answer;
    }
    // None of them has left a trace.
    EXPECT_EQ(simulator->recordGet("Dg", 0), board::Simulator({0, "other"}).recordGet("Dg", 0));
}

TEST_F(Commands, DriverBelongsToItsInput)
{
    const std::string driver(40, 'd');
    ASSERT_EQ(run("Sensor", "driverChange", -1, R"({"driver.file":")" + driver + "\"}")["error"], 0);
    EXPECT_EQ(simulator->recordGet("Sensor", 0, "status").substr(0, 31), std::string(30, 'd') + '\1');
    EXPECT_EQ(run("Camera", "inputSwitch", -1, R"({"index":1})")["driver.file"], "sensor-tele.drv");
    EXPECT_EQ(run("Camera", "inputInfo")["index"], 1u);
    EXPECT_EQ(run("Camera", "inputSwitch", -1, R"({"index":0})")["driver.file"], driver);
}

TEST_F(Commands, RegisterMapFollowsWrites)
{
    ASSERT_EQ(run("Reg", "configSet", -1, R"({"address":1028,"value":4294967295})")["error"], 0);
    std::set<int> permissions;
    Json::Value written;
    const Json::Value modules = run("Reg", "statusGet")["name"];
    for (const Json::Value& jModule : modules)
    {
        Json::Value jQuery = query("Reg", "statusGet");
        jQuery["module.id"] = jModule["module.id"];
        EXPECT_TRUE(jModule["description"].isString());
        const Json::Value registers = simulator->execute(jQuery)["registers"];
        if (written.isNull())
            written = registers[1];
        for (const Json::Value& jRegister : registers)
            permissions.insert(jRegister["permission"].asInt());
    }
    EXPECT_EQ(permissions, (std::set<int>{0, 1, 2}));
    EXPECT_EQ(written["value"], "0xffffffff");
    EXPECT_EQ(written["value.default"], "0x00000020");
}
