#include "tests/rest/rest-fixture.h"
#include "tuning-common/source/limits.h"
#include "tuning-rest/source/ae.h"
#include "tuning-rest/source/camera.h"
#include "tuning-rest/source/cli.h"
#include "tuning-rest/source/fs.h"
#include "tuning-rest/source/image.h"
#include "tuning-rest/source/reg.h"
#include "tuning-rest/source/sensor.h"

#include <cstring>
#include <fstream>
#include <regex>
#include <sstream>

using board::Fault;

namespace
{
/// Where results go. All of it starts with values that no answer here has.
struct Results
{
    std::string text = "before";
    int32_t first = -7;
    int32_t second = -7;
    uint32_t number = 7;
    bool isEnable = true;
    Json::Value json = "before";
    std::vector<std::string> list{"before"};

    bool operator==(const Results& other) const
    {
        return text == other.text && first == other.first && second == other.second && number == other.number &&
               isEnable == other.isEnable && json == other.json && list == other.list;
    }
};

using Call = void (*)(Results&);

std::string fileText(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::stringstream text;
    text << stream.rdbuf();
    return text.str();
}
} // namespace

class ServicesTest : public RestTest
{
};

TEST_F(ServicesTest, CommandsCarryTheirKeys)
{
    const struct
    {
        Call call;
        const char* query;
    } cases[]{
        {[](Results&) { rest::Camera().calibrationSet("a.xml", true); },
         R"({"id":10002,"function":"rest::Camera::calibrationSet","block.signal":true,"calib.file":"a.xml"})"},
        {[](Results&) { rest::Camera().capture("/a/b.c/d e.pgm", rest::Camera::Rgb, 6, [](const Json::Value&) {}); },
         R"({"id":10003,"function":"rest::Camera::capture","file.name":"d e.pgm","snapshot.type":4,"lock.type":6})"},
        {[](Results&) { rest::Camera().capture("d", rest::Camera::Yuv, 0, [](const Json::Value&) {}); },
         R"({"id":10003,"function":"rest::Camera::capture","file.name":"d","snapshot.type":5,"lock.type":0})"},
        {[](Results& r) { rest::Camera().inputInfo(r.first, r.second); },
         R"({"id":10004,"function":"rest::Camera::inputInfo"})"},
        {[](Results& r) { rest::Camera().inputSwitch(3, r.first, r.text); },
         R"({"id":10005,"function":"rest::Camera::inputSwitch","index":3})"},
        {[](Results&) { rest::Camera().preview(false); },
         R"({"id":10006,"function":"rest::Camera::preview","preview":false})"},
        {[](Results& r) { rest::Cli().controlListGet(r.json); },
         R"({"id":20001,"function":"rest::Cli::controlListGet"})"},
        {[](Results& r) { rest::Cli().versionGet(r.json); }, R"({"id":20002,"function":"rest::Cli::versionGet"})"},
        {[](Results& r) { rest::FileSystem().list(r.list, "xml", "."); },
         R"({"id":50001,"function":"rest::FileSystem::list","file.extension":"xml","path":"."})"},
        {[](Results&) { rest::FileSystem().remove("a.drv"); },
         R"({"id":50002,"function":"rest::FileSystem::remove","path":"a.drv"})"},
        {[](Results&)
         {
             rest::Image::Config config;
             config.isLsb = true;
             rest::Image().load("dir/a.pgm", config);
         },
         R"({"id":60001,"function":"rest::Image::load","file.name":"dir/a.pgm","is.lsb":true})"},
        {[](Results&) { rest::Sensor().driverChange("a.drv"); },
         R"({"id":80003,"function":"rest::Sensor::driverChange","driver.file":"a.drv"})"},
        {[](Results&) { rest::Sensor().driverChange("a.drv", [](const Json::Value&) {}); },
         R"({"id":80003,"function":"rest::Sensor::driverChange","driver.file":"a.drv"})"},
        {[](Results& r) { rest::Sensor().registerGet(0xffffffff, r.number); },
         R"({"id":80005,"function":"rest::Sensor::registerGet","address":4294967295})"},
        {[](Results&) { rest::Sensor().registerSet(1, 0x80000000); },
         R"({"id":80006,"function":"rest::Sensor::registerSet","address":1,"value":2147483648})"},
        {[](Results& r) { rest::Reg().configGet(0xfffffffc, r.number); },
         R"({"id":4002701,"function":"rest::Reg::configGet","address":4294967292})"},
        {[](Results&) { rest::Reg().configSet(4, 0xffffffff); },
         R"({"id":4002702,"function":"rest::Reg::configSet","address":4,"value":4294967295})"},
        {[](Results& r) { rest::Reg().statusGet(r.json); }, R"({"id":4002703,"function":"rest::Reg::statusGet"})"},
        {[](Results& r) { rest::Reg().statusGet(-2, r.json); },
         R"({"id":4002703,"function":"rest::Reg::statusGet","module.id":-2})"},
        {[](Results&) { rest::Ae().enableSet(true, rest::Ae::V1); },
         R"({"id":4000104,"function":"rest::Ae::enableSet","generation":0,"enable":true})"},
        {[](Results&) { rest::Ae().reset(rest::Ae::V2); },
         R"({"id":4000105,"function":"rest::Ae::reset","generation":1})"},
    };
    for (const auto& [call, query] : cases)
    {
        Results results;
        try
        {
            call(results);
        }
        catch (const std::exception&)
        {
            // Not all of it exists on the board.
        }
        EXPECT_EQ(lastRequest().query, json(query)) << lastRequest().body;
    }

    std::string fileName;
    rest::Camera().calibrationGet(fileName, false);
    const auto query = lastRequest().query;
    EXPECT_EQ(query["id"], 10001);
    EXPECT_EQ(query["block.signal"], false);
    EXPECT_EQ(query.size(), 4u);
    EXPECT_TRUE(std::regex_match(query["time"].asString(), std::regex(R"(\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d)")));
    EXPECT_TRUE(std::filesystem::exists("board/" + fileName)) << fileName;
}

TEST_F(ServicesTest, ResultsComeBack)
{
    board->answerSet(10004, "count", 4);
    board->answerSet(10004, "index", -2);
    Results r;
    rest::Camera().inputInfo(r.first, r.second);
    EXPECT_EQ(r.first, 4);
    EXPECT_EQ(r.second, -2);

    board->answerSet(10005, "input.type", 3);
    board->answerSet(10005, "driver.file", "some.drv");
    rest::Camera().inputSwitch(1, r.first, r.text);
    EXPECT_EQ(r.first, 3);
    EXPECT_EQ(r.text, "some.drv");
    EXPECT_EQ(board->execute(json(R"({"function":"x","id":10004})"))["index"].asInt(), 1);

    rest::Sensor().registerSet(0x3001, 0xfffffffe).registerGet(0x3001, r.number);
    EXPECT_EQ(r.number, 0xfffffffeu);

    rest::Cli().versionGet(r.json);
    EXPECT_TRUE(r.json["versions"].isArray());
    EXPECT_TRUE(r.json.isMember("error")) << "the whole answer";

    std::ofstream("board/one.xml") << "1";
    std::ofstream("board/two.drv") << "2";
    rest::FileSystem().list(r.list, "xml", ".").list(r.list, "drv", ".");
    EXPECT_EQ(r.list, (std::vector<std::string>{"before", "one.xml", "two.drv"}));
}

TEST_F(ServicesTest, RegisterListAndModuleListDifferInTheModuleOnly)
{
    Json::Value jModules;
    rest::Reg().statusGet(jModules);
    ASSERT_GT(jModules.size(), 0u);
    EXPECT_TRUE(jModules[0]["description"].isString());
    Json::Value jRegisters;
    rest::Reg().statusGet(jModules[0]["module.id"].asInt(), jRegisters);
    ASSERT_GT(jRegisters.size(), 0u);
    EXPECT_TRUE(jRegisters[0]["value.default"].isString());

    uint32_t value = 0;
    const auto address = static_cast<uint32_t>(std::stoul(jRegisters[0]["address"].asString(), nullptr, 16));
    rest::Reg().configGet(address, value);
    EXPECT_EQ(value, std::stoul(jRegisters[0]["value"].asString(), nullptr, 16));
}

// Every key that a command reads, with a value of another type and without the key.
TEST_F(ServicesTest, WrongTypesNameTheirKeyAndLeaveTheResults)
{
    const struct
    {
        Call call;
        const char* key;
        std::vector<const char*> values;
        const char* expected;
    } cases[]{
        {[](Results& r) { rest::Camera().calibrationGet(r.text, false); }, "calib.file", {"{}", "[1]"}, "a text"},
        {[](Results& r) { rest::Camera().inputInfo(r.first, r.second); },
         "count",
         {"\"2\"", "{}", "[]", "2147483648", "1e300"},
         "an integer"},
        {[](Results& r) { rest::Camera().inputInfo(r.first, r.second); }, "index", {"\"2\"", "{}"}, "an integer"},
        {[](Results& r) { rest::Camera().inputSwitch(1, r.first, r.text); }, "input.type", {"\"2\""}, "an integer"},
        {[](Results& r) { rest::Camera().inputSwitch(1, r.first, r.text); }, "driver.file", {"{}", "[]"}, "a text"},
        {[](Results& r) { rest::Sensor().registerGet(1, r.number); },
         "value",
         {"\"2\"", "-1", "4294967296", "[]"},
         "an unsigned integer"},
        {[](Results& r) { rest::Reg().configGet(1, r.number); }, "value", {"\"0x2\"", "-1"}, "an unsigned integer"},
        {[](Results& r) { rest::Reg().statusGet(r.json); }, "name", {"5", "\"text\"", "{}", "true"}, "a list"},
        {[](Results& r) { rest::Reg().statusGet(1, r.json); }, "registers", {"5", "\"text\"", "{}"}, "a list"},
        {[](Results& r) { rest::FileSystem().list(r.list, "xml", "."); }, "file.list", {"{}", "\"a.xml\""}, "a list"},
        {[](Results& r) { rest::Ae().enableGet(r.isEnable, rest::Ae::V1); },
         "enable",
         {"\"yes\"", "{}", "[]"},
         "a truth value"},
    };
    for (const auto& [call, key, values, expected] : cases)
    {
        for (const auto* value : values)
        {
            answer(std::string("{\"error\":0,\"") + key + "\":" + value + "}");
            Results results;
            EXPECT_EQ(failureOf([&, fCall = call] { fCall(results); }),
                      std::string("Error in the answer: \"") + key + "\" is not " + expected)
                << value;
            EXPECT_EQ(results, Results()) << key << " " << value;
        }
    }
}

TEST_F(ServicesTest, MissingKeysReadAsNothing)
{
    answer("{}");
    Results r;
    rest::Camera().calibrationGet(r.text, false);
    rest::Camera().inputInfo(r.first, r.second);
    rest::Sensor().registerGet(1, r.number);
    rest::Ae().enableGet(r.isEnable, rest::Ae::V1);
    rest::FileSystem().list(r.list, "xml", ".");
    rest::Reg().statusGet(r.json);
    Results nothing{"", 0, 0, 0, false, Json::Value(), {"before"}};
    EXPECT_EQ(r, nothing);
    answer(R"({"registers":null,"file.list":null,"driver.file":null})");
    r = Results();
    rest::Reg().statusGet(1, r.json);
    rest::FileSystem().list(r.list, "xml", ".");
    rest::Camera().inputSwitch(0, r.first, r.text);
    nothing.second = -7;
    nothing.number = 7;
    nothing.isEnable = true;
    EXPECT_EQ(r, nothing);
}

TEST_F(ServicesTest, ListsHaveLimits)
{
    const auto listOf = [](const std::string& key, size_t count, const std::string& element)
    {
        std::string text = "{\"" + key + "\":[" + element;
        for (size_t i = 1; i < count; ++i)
            text += "," + element;
        return text + "]}";
    };
    const auto list = [](Results& r) { rest::FileSystem().list(r.list, "xml", "."); };
    const auto limit = t_common::limit::listElements;
    const auto foreign = R"(Error in the answer: "file.list" holds something that is no file name)";
    Results r;
    for (const auto* element : {"5", "null", "{}", "[\"a\"]", "true"})
    {
        answer("{\"file.list\":[\"a.xml\"," + std::string(element) + "]}");
        EXPECT_EQ(failureOf([&] { list(r); }), foreign) << element;
    }
    answer(listOf("file.list", 1, "\"" + std::string(t_common::limit::listText + 1, 'a') + "\""));
    EXPECT_EQ(failureOf([&] { list(r); }), foreign);
    answer(listOf("file.list", limit + 1, "\"a\""));
    EXPECT_EQ(failureOf([&] { list(r); }), R"(Error in the answer: "file.list" has 10001 elements, more than 10000)");
    EXPECT_EQ(r, Results()) << "nothing of a list that fails";
    answer(listOf("file.list", limit, "\"a\""));
    list(r);
    EXPECT_EQ(r.list.size(), limit + 1);

    answer(listOf("name", limit + 1, "{}"));
    EXPECT_EQ(failureOf([&] { rest::Reg().statusGet(r.json); }),
              R"(Error in the answer: "name" has 10001 elements, more than 10000)");
    answer(listOf("registers", limit + 1, "{}"));
    EXPECT_EQ(failureOf([&] { rest::Reg().statusGet(1, r.json); }),
              R"(Error in the answer: "registers" has 10001 elements, more than 10000)");
    EXPECT_EQ(r.json, "before");
}

TEST_F(ServicesTest, PathsOfFilesStandInTheUrl)
{
    const struct
    {
        const char* path;
        const char* target;
    } cases[]{
        {"a.drv", "/a.drv"},       {"a b.drv", "/a%20b.drv"},       {"ä.xml", "/%C3%A4.xml"},
        {"100%.xml", "/100%.xml"}, {"x?y#z&w.xml", "/x?y#z&w.xml"},
    };
    for (const auto& [path, target] : cases)
    {
        std::ofstream(std::string("board/") + path) << "1";
        rest::FileSystem().remove(path);
        EXPECT_EQ(lastRequest().target, target);
        EXPECT_EQ(lastRequest().query["path"], path);
        EXPECT_FALSE(std::filesystem::exists(std::string("board/") + path));
    }
    std::vector<std::string> list;
    rest::FileSystem().list(list, "pgm", ".");
    EXPECT_EQ(lastRequest().target, "/.");

    board->requestsClear();
    EXPECT_NE(failureOf([] { rest::FileSystem().remove("a HTTP/1.1\r\nX: y"); }).find("control characters"),
              std::string::npos);
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(ServicesTest, RegisterDumpLandsInTheWorkingDirectory)
{
    const struct
    {
        const char* path;
        const char* name;
        const char* pathAfter;
    } cases[]{
        {"", "dump_sensor_register.txt", "dump_sensor_register.txt"},
        {"some/dir/", "dump_sensor_register.txt", "dump_sensor_register.txt"},
        {"some/dir/dump.txt", "dump.txt", "some/dir/dump.txt"},
    };
    for (const auto& [given, name, pathAfter] : cases)
    {
        board->requestsClear();
        std::string path = given;
        rest::Sensor().registerDump2File(path);
        EXPECT_EQ(path, pathAfter);
        const auto requests = board->requests();
        ASSERT_EQ(requests.size(), 2u);
        EXPECT_EQ(requests[0].query["file.name"], name);
        EXPECT_EQ(requests[1].target, std::string("/") + name);
        const auto text = fileText(name);
        EXPECT_NE(text.find("0x00003000 "), std::string::npos);
        EXPECT_EQ(text, fileText(std::string("board/") + name) + "\n");
        std::filesystem::remove(name);
    }

    board->faultSet({Fault::Error, 80004});
    std::string path;
    board->requestsClear();
    EXPECT_EQ(failureOf([&] { rest::Sensor().registerDump2File(path); }), "Server: The board refuses");
    EXPECT_EQ(board->requestCount(), 1u) << "nothing to fetch";
    EXPECT_FALSE(std::filesystem::exists("dump_sensor_register.txt"));
}

TEST_F(ServicesTest, RecordsGoBackByteForByte)
{
    const auto pattern = [](size_t size, int start)
    {
        std::string bytes(size, '\0');
        for (size_t i = 0; i < size; ++i)
            bytes[i] = char(start + int(i) * 3);
        return bytes;
    };
    for (const auto generation : {rest::Ae::V1, rest::Ae::V2})
    {
        const auto bytes = pattern(36, 5 + generation);
        board->recordSet("Ae", generation, bytes);
        rest::Ae::Config config;
        rest::Ae().configGet(config, generation);
        board->recordSet("Ae", generation, std::string(36, '\0'));
        rest::Ae().configSet(config, generation);
        EXPECT_EQ(lastRequest().query["generation"], int(generation));
        EXPECT_EQ(lastRequest().query["config"].asString(), t_common::Base64::encode(bytes.data(), 36));
    }
    // Not from the board's own record: its exposure loop writes there as well.
    const auto text = t_common::Base64::encode(pattern(44, 9).data(), 44);
    board->answerSet(80001, "config", text);
    rest::Sensor::Config config;
    rest::Sensor().configGet(config).configSet(config);
    EXPECT_EQ(lastRequest().query["config"].asString(), text);
}

TEST_F(ServicesTest, SensorStatusMayUseItsWholeName)
{
    auto bytes = board->recordGet("Sensor", 0, "status");
    bytes.replace(0, 31, std::string(30, 'n') + '\x02');
    board->recordSet("Sensor", 0, bytes, "status");
    rest::Sensor::Status status;
    rest::Sensor().statusGet(status);
    EXPECT_EQ(rest::recordText(status.driverName), std::string(30, 'n'));
    EXPECT_TRUE(bool(status.isConnected)) << "any byte but zero";
}

TEST_F(ServicesTest, LoadedPictureIsDescribed)
{
    std::ofstream("board/p.pgm", std::ios::binary) << "P5 3 2 4095\n" << std::string(12, 'x');
    rest::Image::Config config;
    rest::Image().load("p.pgm", config);
    EXPECT_EQ(lastRequest().query["is.lsb"], false);
    EXPECT_EQ(config.metaData.Type, rest::PIC_BUF_TYPE_RAW12);
    EXPECT_EQ(config.metaData.buf_id.width, 3);
    EXPECT_EQ(config.metaData.buf_id.height, 2);
    EXPECT_EQ(config.metaData.Data.raw.PicWidthBytes, 6u);

    board->faultSet({Fault::RecordShort});
    const auto loaded = config.metaData;
    EXPECT_THROW(rest::Image().load("p.pgm", config), t_common::LogicError);
    EXPECT_EQ(std::memcmp(&loaded, &config.metaData, sizeof loaded), 0);
}
