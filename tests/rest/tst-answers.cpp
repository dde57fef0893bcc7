#include "tests/rest/fixture.h"
#include "tests/rest/services.h"
#include "tuning-common/source/limits.h"

#include <cstring>
#include <tuple>

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

    auto tie() const { return std::tie(text, first, second, number, isEnable, json, list); }
    bool operator==(const Results& other) const { return tie() == other.tie(); }
};

using Call = void (*)(Results&);

void calibration(Results& r) { rest::Camera().calibrationGet(r.text, false); }
void inputInfo(Results& r) { rest::Camera().inputInfo(r.first, r.second); }
void inputSwitch(Results& r) { rest::Camera().inputSwitch(1, r.first, r.text); }
void sensorRegister(Results& r) { rest::Sensor().registerGet(1, r.number); }
void modules(Results& r) { rest::Reg().statusGet(r.json); }
void registers(Results& r) { rest::Reg().statusGet(1, r.json); }
void fileList(Results& r) { rest::FileSystem().list(r.list, "xml", "."); }
void enable(Results& r) { rest::Ae().enableGet(r.isEnable, rest::Ae::V1); }

std::string listOf(const std::string& key, size_t count, const std::string& element)
{
    std::string text = "{\"" + key + "\":[" + element;
    for (size_t i = 1; i < count; ++i)
        text += "," + element;
    return text + "]}";
}
} // namespace

class AnswersTest : public RestTest
{
};

TEST_F(AnswersTest, WrongTypesNameTheirKeyAndLeaveTheResults)
{
    const struct
    {
        Call call;
        const char* key;
        std::vector<const char*> values;
        const char* expected;
    } cases[]{
        {calibration, "calib.file", {"{}", "[1]"}, "a text"},
        {inputInfo, "count", {"\"2\"", "{}", "[]", "2147483648", "1e300"}, "an integer"},
        {inputInfo, "index", {"\"2\"", "{}"}, "an integer"},
        {inputSwitch, "input.type", {"\"2\""}, "an integer"},
        {inputSwitch, "driver.file", {"{}", "[]"}, "a text"},
        {sensorRegister, "value", {"\"2\"", "-1", "4294967296", "[]"}, "an unsigned integer"},
        {modules, "name", {"5", "\"text\"", "{}", "true"}, "a list"},
        {registers, "registers", {"5", "\"text\"", "{}"}, "a list"},
        {fileList, "file.list", {"{}", "\"a.xml\""}, "a list"},
        {enable, "enable", {"\"yes\"", "{}", "[]"}, "a truth value"},
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

TEST_F(AnswersTest, WrongKeyOfSeveralLeavesAllFields)
{
    rest::Dpf::Config dpf;
    dpf.sigmaGreen = 7;
    dpf.gradient = 2;
    const std::tuple<const char*, Json::Value, const char*> cases[]{
        {"sigma.green", 256, "\"sigma.green\" is not an unsigned integer"},
        {"sigma.green", -1, "\"sigma.green\" is not an unsigned integer"},
        {"gradient", 1e39, "\"gradient\" is not a number of its precision"},
        {"gradient", Json::arrayValue, "\"gradient\" is not a number"},
        {"sigma.red.blue", "7", "\"sigma.red.blue\" is not an unsigned integer"}};
    for (const auto& [key, value, text] : cases)
    {
        board->answerSet(4001801, key, value);
        EXPECT_TRUE(contains(failureOf([&] { rest::Dpf().configGet(dpf); }), text)) << key << value;
        EXPECT_EQ(std::tie(dpf.sigmaGreen, dpf.gradient), std::tuple(7, 2));
        board->answersClear();
    }

    rest::Avs::Status status{{1, 2}, {3, 4}};
    board->answerSet(4000405, "offset", 3);
    EXPECT_TRUE(contains(failureOf([&] { rest::Avs().statusGet(status); }), "\"offset\" is not a pair"));
    board->answerSet(4000405, "offset", json("{\"x\":40000,\"y\":0}"));
    EXPECT_NE(failureOf([&] { rest::Avs().statusGet(status); }), "");
    EXPECT_EQ(std::tie(status.displacement.x, status.offset.y), std::tuple(1, 4));
    board->answerSet(4000405, "offset", json("{\"x\":7}"));
    EXPECT_EQ(failureOf([&] { rest::Avs().statusGet(status); }), "");
    EXPECT_EQ(std::tie(status.offset.x, status.offset.y), std::tuple(7, 0));

    board->answerSet(30001, "config", "AAAA");
    rest::Dewarp::Config config;
    void* pMap = &config;
    uint32_t size = 1;
    EXPECT_NE(::failureOf([&] { rest::Dewarp().configGet(config, &pMap, size); }), "");
    EXPECT_EQ(pMap, &config);
}

TEST_F(AnswersTest, RecordsOfTheWrongSizeLeaveTheTarget)
{
    rest::Ae::Config config;
    std::memset(static_cast<void*>(&config), 0x5a, sizeof config);
    const auto untouched = config;
    const auto read = [&] { rest::Ae().configGet(config, rest::Ae::V1); };
    for (const auto& fault : {Fault{Fault::RecordShort}, Fault{Fault::RecordLong}, Fault{Fault::Base64Broken},
                              Fault{Fault::NotJson, 0, -1, 0, "{}"}, Fault{Fault::NotJson, 0, -1, 0, "{\"config\":5}"}})
    {
        board->faultSet(fault);
        EXPECT_EQ(::failureOf<t_common::LogicError>(read), "Base64 decode failed: object size not match");
        EXPECT_EQ(std::memcmp(&config, &untouched, sizeof config), 0) << "kind " << fault.kind;
    }
    answer(R"({"config":["QUJD"]})");
    EXPECT_EQ(failureOf(read), R"(Error in the answer: "config" is not a text)");
}

TEST_F(AnswersTest, MissingKeysReadAsNothing)
{
    answer("{}");
    Results r;
    for (const auto call : {calibration, inputInfo, sensorRegister, enable, fileList, modules})
        call(r);
    const Results nothing{"", 0, 0, 0, false, Json::Value(), {"before"}};
    EXPECT_EQ(r, nothing);
    answer(R"({"registers":null,"file.list":null,"driver.file":null})");
    r = Results();
    for (const auto call : {registers, fileList, inputSwitch})
        call(r);
    EXPECT_EQ(r, (Results{"", 0, -7, 7, true, Json::Value(), {"before"}}));
}

TEST_F(AnswersTest, NumbersAreTruthValues)
{
    bool isEnable = false;
    for (const auto& [value, expected] : std::vector<std::pair<Json::Value, bool>>{
             {2, true}, {0, false}, {-1, true}, {0.5, false}, {false, false}, {true, true}, {Json::nullValue, false}})
    {
        board->answerSet(4001303, "enable", value);
        rest::DeMosaic().enableGet(isEnable, rest::DeMosaic::V2);
        EXPECT_EQ(isEnable, expected) << value;
    }
}

TEST_F(AnswersTest, ListsHaveLimits)
{
    const auto limit = t_common::limit::listElements;
    const std::pair<Call, const char*> lists[]{{fileList, "file.list"}, {modules, "name"}, {registers, "registers"}};
    Results r;
    for (const auto& [call, key] : lists)
    {
        answer(listOf(key, limit + 1, "\"a\""));
        EXPECT_EQ(failureOf([&, fCall = call] { fCall(r); }),
                  std::string("Error in the answer: \"") + key + "\" has 10001 elements, more than 10000");
    }
    const auto longName = "\"" + std::string(t_common::limit::listText + 1, 'a') + "\"";
    for (const auto& element : {std::string("5"), std::string("null"), std::string("[\"a\"]"), longName})
    {
        answer("{\"file.list\":[\"a.xml\"," + element + "]}");
        EXPECT_EQ(failureOf([&] { fileList(r); }),
                  R"(Error in the answer: "file.list" holds something that is no file name)");
    }
    EXPECT_EQ(r, Results()) << "nothing of a list that fails";
    answer(listOf("file.list", limit, "\"a\""));
    fileList(r);
    EXPECT_EQ(r.list.size(), limit + 1);
}

TEST_F(AnswersTest, RegisterDumpLandsInTheWorkingDirectory)
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
        EXPECT_TRUE(contains(text, "0x00003000 "));
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
