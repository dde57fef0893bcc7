#include "tests/simulator/fixture.h"

#include "board-simulator/source/keys.h"

#include <set>

namespace
{

class Commands : public BoardTest
{
protected:
    Json::Value run(const Json::Value& jQuery) { return simulator->execute(jQuery); }
};

/// Calls `action` with each class that has the command, and each of its generations (-1 for none).
template <typename Action>
void eachGeneration(const std::string& command, Action action)
{
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        for (const auto& known : commandClass.commands)
        {
            if (known.name == command)
            {
                const int count = static_cast<int>(commandClass.generations.size());
                for (int generation = count ? 0 : -1; generation < count; ++generation)
                {
                    SCOPED_TRACE(commandClass.name + " " + std::to_string(generation));
                    action(commandClass.name, generation);
                }
            }
        }
    }
}

bool isService(const std::string& className)
{
    return className == "Reg" || className == "FileSystem" || className == "Camera";
}

std::string firstRecordKey(const Json::Value& answer)
{
    return answer.isMember("curve") ? "curve" : answer["config"].isString() ? "config" : "";
}

} // namespace

TEST_F(Commands, CatalogueIsWhole)
{
    std::set<int64_t> ids;
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        for (const auto& command : commandClass.commands)
        {
            ids.insert(command.id);
        }
    }
    EXPECT_EQ(ids.size(), 178u);
    EXPECT_EQ(board::Wire::instance().classes().size(), 39u);
}

TEST_F(Commands, EveryModuleAnswersEveryReadInEveryGeneration)
{
    for (const char* command : {"configGet", "enableGet", "enabelGet", "statusGet", "tableGet", "availableGet"})
    {
        eachGeneration(command,
                       [&](const std::string& name, int generation)
                       {
                           if (!isService(name))
                           {
                               const Json::Value answer = run(query(name, command, generation));
                               EXPECT_EQ(answer["error"], 0) << answer;
                           }
                       });
    }
    eachGeneration("tableGet",
                   [&](const std::string& name, int generation)
                   {
                       const Json::Value table = run(query(name, "tableGet", generation))["table"];
                       ASSERT_GT(table["rows"].size(), 1u);
                       for (const Json::Value& row : table["rows"])
                       {
                           EXPECT_EQ(row.size(), table["columns"].size());
                       }
                   });
}

TEST_F(Commands, SettingsStayInTheirGeneration)
{
    eachGeneration("configSet",
                   [&](const std::string& name, int generation)
                   {
                       if (isService(name) || name == "Ae" || name == "Sensor")
                       {
                           return;
                       }
                       const Json::Value before = run(query(name, "configGet", generation));
                       // Its last field is the board's own.
                       const bool isKept = name == "Awb";
                       Json::Value jQuery = before;
                       jQuery.removeMember("error");
                       if (jQuery.empty())
                       {
                           jQuery["key"] = 5;
                       }
                       const std::string key = firstRecordKey(before);
                       if (!key.empty())
                       {
                           std::string bytes = *board::base64Decode(before[key].asString());
                           bytes.front() = static_cast<char>(bytes.front() + 1 + generation);
                           bytes.back() = isKept ? bytes.back() : '\x7f';
                           jQuery[key] = board::base64Encode(bytes);
                       }
                       const Json::Value sent = jQuery;
                       const Json::Value envelope = query(name, "configSet", generation);
                       for (const std::string& member : envelope.getMemberNames())
                       {
                           jQuery[member] = envelope[member];
                       }
                       ASSERT_EQ(run(jQuery)["error"], 0);
                       // Whatever was set before in other generations must not have reached this one.
                       Json::Value after = run(query(name, "configGet", generation));
                       after.removeMember("error");
                       EXPECT_EQ(after, sent);
                       if (generation > 0 && !key.empty())
                       {
                           const Json::Value first = run(query(name, "configGet", 0));
                           EXPECT_NE(first[firstRecordKey(first)], sent[key]);
                       }
                   });
}

TEST_F(Commands, ResetGoesBackToTheStart)
{
    eachGeneration("reset",
                   [&](const std::string& name, int generation)
                   {
                       if (name == "Cnr2")
                       {
                           return;
                       }
                       const Json::Value before = run(query(name, "enableGet", generation));
                       Json::Value jQuery = query(name, "enableSet", generation);
                       jQuery["enable"] = !before["enable"].asBool();
                       ASSERT_EQ(run(jQuery)["error"], 0);
                       EXPECT_NE(run(query(name, "enableGet", generation)), before);
                       ASSERT_EQ(run(query(name, "reset", generation))["error"], 0);
                       EXPECT_EQ(run(query(name, "enableGet", generation)), before);
                   });
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
    std::ofstream(base / "files" / "a.pgm") << "P5 2 1 255\nab";
    std::ofstream(base / "files" / "a.xml") << "<calibration/>";
    std::ofstream(base / "files" / "a.drv") << "driver";
    std::ofstream(base / "files" / "b.txt") << "text";
    Json::Value arguments;
    std::istringstream(R"({
        "address": 1024, "value": 7, "block.signal": true, "time": "now", "calib.file": "a.xml", "index": 1,
        "preview": true, "driver.file": "a.drv", "file.name": "a.pgm", "file.extension": "xml", "is.lsb": false,
        "snapshot.type": 3, "lock.type": 7})") >>
        arguments;
    std::map<std::string, Json::Value> paths{{"list", "."}, {"remove", "b.txt"}};
    size_t count = 0;
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        std::map<std::string, int> generations = commandClass.generations;
        if (generations.empty())
        {
            generations[""] = -1;
        }
        for (const auto& [generation, number] : generations)
        {
            Json::Value told = arguments;
            for (const auto& command : commandClass.commands)
            {
                SCOPED_TRACE(commandClass.name + "::" + command.name + " " + generation);
                Json::Value jQuery = query(commandClass.name, command.name, number);
                for (const auto& key : board::Keys::instance().request(commandClass.name, command.name, generation))
                {
                    const Json::Value value = key.name == "path" ? paths[command.name] : told[key.name];
                    if (!key.isOptional)
                    {
                        EXPECT_TRUE(key.fits(value)) << key.name << value;
                        jQuery[key.name] = value;
                    }
                }
                const Json::Value answer = run(jQuery);
                EXPECT_EQ(answer["error"], 0) << answer;
                for (const auto& key : board::Keys::instance().answer(commandClass.name, command.name, generation))
                {
                    EXPECT_TRUE(key.isOptional || key.fits(answer[key.name])) << key.name << answer[key.name];
                    if (!key.recordName().empty())
                    {
                        EXPECT_EQ(board::base64Decode(answer[key.name].asString())->size(),
                                  board::Wire::instance().record(key.recordName()).size);
                    }
                }
                for (const auto& key : answer.getMemberNames())
                {
                    told[key] = answer[key];
                }
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
        {R"({"function":"f","id":4000103,"generation":-1})", "rest::Ae has no generation -1"},
        {R"({"function":"f","id":4001403,"generation":0})", "rest::Dg has no generations"},
        {R"({"function":"f","id":4001404})", "enable is missing"},
        {R"({"function":"f","id":4001404,"enable":1})", "enable is of the wrong type"},
        {R"({"function":"f","id":4001402})", "config is missing"},
        {R"({"function":"f","id":4001402,"config":"AAAA"})", "rest::Dg::Config has 8 bytes, not 3"},
        {R"({"function":"f","id":4001402,"config":"AAAAAAAAAAA"})", "config is not Base64"},
        {R"({"function":"f","id":4001402,"config":"AAAA_AAAAAA="})", "config is not Base64"},
        {R"({"function":"f","id":4001402,"config":8})", "config is of the wrong type"},
        {R"({"function":"f","id":4000602})", "blue is missing"},
        {R"({"function":"f","id":4000602,"blue":70000})", "blue is of the wrong type"},
        {R"({"function":"f","id":10005,"index":2})", "There is no input 2"},
        {R"({"function":"f","id":80006,"address":-1,"value":0})", "address is not an unsigned integer of 32 bits"},
        {R"({"function":"f","id":4002702,"address":1040,"value":1})", "Register 0x00000410 is read only"},
        {R"({"function":"f","id":4002703,"module.id":99})", "There is no register module 99"},
    };
    for (const auto& [text, message] : cases)
    {
        Json::Value jQuery;
        std::istringstream(text) >> jQuery;
        const Json::Value answer = run(jQuery);
        EXPECT_NE(answer["error"], 0) << text;
        EXPECT_NE(answer["message"].asString().find(message), std::string::npos) << text << answer;
    }
    // None of them has left a trace.
    EXPECT_EQ(simulator->recordGet("Dg", 0), board::Simulator({0, (base / "other").string()}).recordGet("Dg", 0));
}

TEST_F(Commands, DriverBelongsToItsInput)
{
    Json::Value change = query("Sensor", "driverChange");
    change["driver.file"] = std::string(40, 'd');
    ASSERT_EQ(run(change)["error"], 0);
    EXPECT_EQ(simulator->recordGet("Sensor", 0, "status").substr(0, 31), std::string(30, 'd') + '\1');

    Json::Value toOther = query("Camera", "inputSwitch");
    toOther["index"] = 1;
    EXPECT_EQ(run(toOther)["driver.file"], "sensor-tele.drv");
    toOther["index"] = 0;
    EXPECT_EQ(run(toOther)["driver.file"], std::string(40, 'd'));
}

TEST_F(Commands, RegisterMapFollowsWrites)
{
    Json::Value jQuery = query("Reg", "configSet");
    jQuery["address"] = 0x404;
    jQuery["value"] = 0xFFFFFFFFu;
    ASSERT_EQ(run(jQuery)["error"], 0);
    const Json::Value modules = run(query("Reg", "statusGet"))["name"];
    std::set<int> permissions;
    jQuery = query("Reg", "statusGet");
    for (const Json::Value& jModule : modules)
    {
        jQuery["module.id"] = jModule["module.id"];
        const Json::Value registers = run(jQuery)["registers"];
        for (const Json::Value& jRegister : registers)
        {
            permissions.insert(jRegister["permission"].asInt());
        }
    }
    EXPECT_EQ(permissions, (std::set<int>{0, 1, 2}));
    jQuery["module.id"] = modules[0]["module.id"];
    const Json::Value jRegister = run(jQuery)["registers"][1];
    EXPECT_EQ(jRegister["value"], "0xffffffff");
    EXPECT_EQ(jRegister["value.default"], "0x00000020");
}
