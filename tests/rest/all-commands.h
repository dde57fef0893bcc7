#pragma once

#include "tests/rest/service.h"

#include "tests/rest/services.h"
#include "tuning-common/source/base64.h"

#include <cstdlib>
#include <regex>

using namespace rest;

template <class... T>
std::vector<double> numbers(const T&... values)
{
    return {static_cast<double>(values)...};
}

/// Sends every command of the client in every generation.
class Commands : public CommandTest
{
protected:
    template <class S>
    Service<S> service(const std::string& name)
    {
        return {*this, name, ""};
    }

    template <class S>
    Service<S, typename S::Generation> service(const std::string& name, const std::string& generation,
                                               typename S::Generation number)
    {
        return {*this, name, generation, number};
    }

    template <class S, class Action>
    void each(const std::string& name, const std::map<std::string, typename S::Generation>& generations, Action action)
    {
        EXPECT_EQ(generations.size(), static_cast<size_t>(S::VMax)) << name;
        for (const auto& [generation, number] : generations)
            action(service<S>(name, generation, number));
    }

    /// A command that has an argument under each key.
    void sends(const std::string& className, const std::string& command, const std::string& arguments,
               const std::function<void()>& call)
    {
        expectRequest(className, command, "", json(arguments), call);
    }

    void all();

    void recordModules();
    void plainModules();
    void stabilisation();
    void dewarp();
    void cameras();
    void registers();
    void files();
};

inline void Commands::recordModules()
{
    each<Ae>("Ae", {{"V1", Ae::V1}, {"V2", Ae::V2}}, [](auto ae) { ae.config().enable().reset().status(); });
    each<Ahdr>("Ahdr", {{"V1", Ahdr::V1}}, [](auto ahdr) { ahdr.config().enable().reset().tables(); });
    each<DeMosaic>("DeMosaic", {{"V1", DeMosaic::V1}, {"V2", DeMosaic::V2}},
                   [](auto deMosaic) { deMosaic.config().enable().reset(); });
    each<Dnr2>("Dnr2", {{"V1", Dnr2::V1}, {"V5", Dnr2::V5}},
               [](auto dnr) { dnr.config().enable().reset().exposureStatus().tables(); });
    each<Dnr3>("Dnr3", {{"V1", Dnr3::V1}, {"V3", Dnr3::V3}, {"V3_2", Dnr3::V3_2}},
               [](auto dnr) { dnr.config().enable().reset().exposureStatus().tables(); });
    each<Gc>("Gc", {{"V1", Gc::V1}, {"V2", Gc::V2}}, [](auto gc) { gc.config().enable(); });
    each<Hdr>("Hdr", {{"V1", Hdr::V1}, {"V1_2", Hdr::V1_2}, {"V2", Hdr::V2}, {"V2_LITE", Hdr::V2_LITE}},
              [](auto hdr) { hdr.config().enable().reset().status(); });
    each<Wdr>("Wdr", {{"V1", Wdr::V1}, {"V2", Wdr::V2}, {"V3", Wdr::V3}, {"V4", Wdr::V4}, {"V5", Wdr::V5}},
              [](auto wdr) { wdr.config().enable().reset().exposureStatus().tables(); });
    service<Awb>("Awb").config().enable().reset().status();
    service<Ca>("Ca").config().enable().tables();
    service<Cac>("Cac").enable().status();
    service<Cproc>("Cproc").config().enable();
    service<Dci>("Dci").config().enable().tables();
    service<Dg>("Dg").config().enable();
    service<Dpcc>("Dpcc").config().enable();
    service<Ge>("Ge").config().enable();
    service<Ie>("Ie").config().enable();
    service<Rgbir>("Rgbir").config().enable();
    service<Roi>("Roi").config();
    service<Sensor>("Sensor").config().status();
    service<Wb>("Wb").config();
    service<Lut3d>("Lut3d").enable();
    service<Dehaze>("Dehaze").enable();
}

// Which key is which control's: the tests of the pages say that.
inline void Commands::plainModules()
{
    service<Af>("Af").config().enable().reads("availableGet", &Af::availableGet);
    service<Bls>("Bls").config();
    service<Cnr>("Cnr").config().enable();
    service<Cnr2>("Cnr2").config().reset();
    service<Dpf>("Dpf").config().enable();
    service<Ee>("Ee").config().enable().reset().exposureStatus().tables();
    service<Filter>("Filter").config().enable().reset().exposureStatus().tables();
    service<Lsc>("Lsc").config().status().both("enabelGet", &Lsc::enabelGet, "enableSet", &Lsc::enableSet);
    service<Simp>("Simp").config().enable();
}

inline void Commands::stabilisation()
{
    service<Avs>("Avs").config().enable().configMeans(
        "use.params acceleration gain.base fall.off num.itp.points theta count",
        [](const auto& c) {
            return numbers(c.isUseParams, c.acceleration, c.baseGain, c.fallOff, c.numItpPoints, c.theta, c.dampCount);
        });
    Avs::Config config;
    const auto x = random.record("double[50]");
    const auto y = random.record("double[50]");
    board->answerSet(4000401, "x", x);
    board->answerSet(4000401, "y", y);
    Avs().configGet(config);
    EXPECT_EQ(t_common::Base64::encode(config.x, sizeof config.x), x.asString());
    EXPECT_EQ(t_common::Base64::encode(config.y, sizeof config.y), y.asString());

    Avs::Status status;
    board->answerSet(4000405, "displacement", json(R"({"x": -32768, "y": 32767})"));
    board->answerSet(4000405, "offset", json(R"({"x": 1, "y": -2})"));
    sends("Avs", "statusGet", "{}", [&] { Avs().statusGet(status); });
    EXPECT_EQ(status.displacement.x, -32768);
    EXPECT_EQ(status.displacement.y, 32767);
    EXPECT_EQ(status.offset.x, 1);
    EXPECT_EQ(status.offset.y, -2);
    board->answersClear();
}

inline void Commands::dewarp()
{
    service<Dewarp>("Dewarp").enable();
    for (const auto& map : {std::string(), std::string("\0\xff\x80map", 6), std::string(100000, '\x7f')})
    {
        Json::Value arguments;
        arguments["config"] = random.record("rest::Dewarp::Config");
        arguments["map"] = board::base64Encode(map);
        Dewarp::Config config;
        t_common::Base64::decode(arguments["config"].asString(), config);
        auto bytes = map;
        expectRequest("Dewarp", "configSet", "", arguments,
                      [&] { Dewarp().configSet(config, bytes.data(), static_cast<uint32_t>(bytes.size())); });
        Dewarp::Config received;
        void* pMap = nullptr;
        uint32_t size = 0;
        sends("Dewarp", "configGet", "{}", [&] { Dewarp().configGet(received, &pMap, size); });
        EXPECT_EQ(t_common::Base64::encode(received), arguments["config"].asString());
        EXPECT_EQ(std::string(static_cast<const char*>(pMap), size), map);
        std::free(pMap);
    }
}

inline void Commands::cameras()
{
    std::string text;
    Json::Value jAnswer;
    auto arguments = json(R"({"block.signal": false})");
    expectRequest("Camera", "calibrationGet", "", arguments,
                  [&]
                  {
                      Camera().calibrationGet(text, false);
                      arguments["time"] = board->requests()[0].query["time"];
                  });
    EXPECT_TRUE(std::regex_match(text, std::regex(R"(calibration_\d{4}-\d\d-\d\d_\d\d-\d\d-\d\d\.xml)"))) << text;
    EXPECT_EQ(text, "calibration_" + arguments["time"].asString() + ".xml");
    sends("Camera", "calibrationSet", R"({"block.signal": true, "calib.file": ")" + text + R"("})",
          [&] { Camera().calibrationSet(text, true); });
    const auto fComplete = [&](const Json::Value& jResponse) { jAnswer = jResponse; };
    sends("Camera", "capture", R"({"file.name": "a.b c.pgm", "snapshot.type": 4, "lock.type": 4294967295})",
          [&] { Camera().capture("/data/b.c/a.b c.pgm", Camera::Rgb, UINT32_MAX, fComplete); });
    sends("Camera", "capture", R"({"file.name": "a", "snapshot.type": 5, "lock.type": 0})",
          [&] { Camera().capture("a", Camera::Yuv, 0, fComplete); });
    EXPECT_EQ(jAnswer["file.name"], "a.yuv");
    int32_t first = 0;
    int32_t second = 0;
    board->answerSet(10004, "count", 4);
    board->answerSet(10004, "index", -2);
    sends("Camera", "inputInfo", "{}", [&] { Camera().inputInfo(first, second); });
    EXPECT_EQ(std::tie(first, second), std::tuple(4, -2));
    board->answerSet(10005, "input.type", 3);
    sends("Camera", "inputSwitch", R"({"index": 1})", [&] { Camera().inputSwitch(1, first, text); });
    EXPECT_EQ(std::tie(first, text), std::tuple(3, "sensor-tele.drv"));
    sends("Camera", "preview", R"({"preview": true})", [] { Camera().preview(true); });
    sends("Sensor", "driverChange", R"({"driver.file": "sensor-tele.drv"})",
          [] { Sensor().driverChange("sensor-tele.drv"); });
    sends("Sensor", "driverChange", R"({"driver.file": "sensor-main.drv"})",
          [&] { Sensor().driverChange("sensor-main.drv", fComplete); });
}

inline void Commands::registers()
{
    uint32_t value = 0;
    Json::Value jAnswer;
    sends("Sensor", "registerSet", R"({"address": 4294967295, "value": 2147483648})",
          [] { Sensor().registerSet(UINT32_MAX, 0x80000000); });
    sends("Sensor", "registerGet", R"({"address": 4294967295})", [&] { Sensor().registerGet(UINT32_MAX, value); });
    EXPECT_EQ(value, 0x80000000);
    std::string path = "some/dir/";
    sends("Sensor", "registerDump2File", R"({"file.name": "dump_sensor_register.txt"})",
          [&] { Sensor().registerDump2File(path); });
    sends("Reg", "configSet", R"({"address": 1024, "value": 4294967295})", [] { Reg().configSet(1024, UINT32_MAX); });
    sends("Reg", "configGet", R"({"address": 1024})", [&] { Reg().configGet(1024, value); });
    EXPECT_EQ(value, UINT32_MAX);
    sends("Reg", "statusGet", "{}", [&] { Reg().statusGet(jAnswer); });
    EXPECT_EQ(jAnswer[0]["module.id"], 0);
    sends("Reg", "statusGet", R"({"module.id": 1})", [&] { Reg().statusGet(1, jAnswer); });
    EXPECT_EQ(jAnswer[0]["name"], "exp_ctrl");
}

inline void Commands::files()
{
    std::vector<std::string> names{"before"};
    fileStore("board/picture.one", "P5 2 1 255\nab");
    sends("FileSystem", "list", R"({"file.extension": "one", "path": "."})",
          [&] { FileSystem().list(names, "one", "."); });
    EXPECT_EQ(names, (std::vector<std::string>{"before", "picture.one"}));
    Image::Config config;
    sends("Image", "load", R"({"file.name": "picture.one", "is.lsb": false})",
          [&] { Image().load("picture.one", config); });
    config.isLsb = true;
    const auto metadata = random.record("PicBufMetaData_s");
    board->answerSet(60001, "metadata", metadata);
    sends("Image", "load", R"({"file.name": "picture.one", "is.lsb": true})",
          [&] { Image().load("picture.one", config); });
    EXPECT_EQ(t_common::Base64::encode(config.metaData), metadata.asString());
    sends("FileSystem", "remove", R"({"path": "picture.one"})", [] { FileSystem().remove("picture.one"); });

    Json::Value jAnswer;
    sends("Cli", "controlListGet", "{}", [&] { Cli().controlListGet(jAnswer); });
    EXPECT_TRUE(jAnswer.isMember("error")) << "the whole answer";
    sends("Cli", "versionGet", "{}", [&] { Cli().versionGet(jAnswer); });
    EXPECT_TRUE(jAnswer["versions"].isArray());
    EXPECT_TRUE(jAnswer.isMember("error")) << "the whole answer";
}

inline void Commands::all()
{
    recordModules();
    plainModules();
    stabilisation();
    dewarp();
    cameras();
    registers();
    files();
}
