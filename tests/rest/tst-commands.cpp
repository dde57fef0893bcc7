#include "tests/rest/fixture.h"

#include "tuning-common/source/logic-error.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace
{
using namespace rest;

class Commands : public BoardConnection
{
protected:
    template <class S>
    Service<S> service(const std::string& name)
    {
        return {*this, name, ""};
    }

    template <class S, class Action>
    void eachGeneration(const std::string& name, Action action)
    {
        for (const auto& [generation, number] : board::Wire::instance().commandClass(name).generations)
            action(Service<S, typename S::Generation>(*this, name, generation,
                                                      static_cast<typename S::Generation>(number)));
    }

    /// A command that has an argument under each key.
    void sends(const std::string& className, const std::string& command, const std::string& arguments,
               const std::function<void()>& call)
    {
        expectRequest(className, command, "", json.parse(arguments), call);
    }

    void recordModules();
    void plainModules();
    void wideDynamicRange();
    void dewarp();
    void services();
};

void Commands::recordModules()
{
    eachGeneration<Ae>("Ae", [](auto ae) { ae.config().enable().reset().status(); });
    eachGeneration<Ahdr>("Ahdr", [](auto ahdr) { ahdr.config().enable().reset().tables(); });
    eachGeneration<DeMosaic>("DeMosaic", [](auto deMosaic) { deMosaic.config().enable().reset(); });
    eachGeneration<Dnr2>("Dnr2", [](auto dnr) { dnr.config().enable().reset().exposureStatus().tables(); });
    eachGeneration<Dnr3>("Dnr3", [](auto dnr) { dnr.config().enable().reset().exposureStatus().tables(); });
    eachGeneration<Gc>("Gc", [](auto gc) { gc.config().enable(); });
    eachGeneration<Hdr>("Hdr", [](auto hdr) { hdr.config().enable().reset().status(); });
    service<Awb>("Awb").config().enable().reset().status();
    service<Ca>("Ca").config().enable().tables();
    service<Cac>("Cac").enable().status();
    service<Cproc>("Cproc").config("CamEngineCprocConfig_s").enable();
    service<Dci>("Dci").config().enable().tables();
    service<Dg>("Dg").config().enable();
    service<Dpcc>("Dpcc").config().enable();
    service<Ge>("Ge").config().enable();
    service<Ie>("Ie").config("OptrixIeConfig_s").enable();
    service<Rgbir>("Rgbir").config().enable();
    service<Roi>("Roi").config();
    service<Sensor>("Sensor").config().status();
    service<Wb>("Wb").config();
    service<Lut3d>("Lut3d").enable();
    service<Dehaze>("Dehaze").enable();
}

void Commands::plainModules()
{
    service<Af>("Af")
        .config(PlainFields<Af::Config>()
                    .add("algorithm", &Af::Config::searchAlgorithm)
                    .add("oneshot", &Af::Config::isOneshort))
        .enable()
        .reads("availableGet", &Af::availableGet, "available");
    const auto parameters = PlainFields<Avs::Config>()
                                .add("use.params", &Avs::Config::isUseParams)
                                .add("acceleration", &Avs::Config::acceleration)
                                .add("gain.base", &Avs::Config::baseGain)
                                .add("fall.off", &Avs::Config::fallOff)
                                .add("num.itp.points", &Avs::Config::numItpPoints)
                                .add("theta", &Avs::Config::theta);
    auto withCurve = parameters;
    withCurve.add("count", &Avs::Config::dampCount);
    withCurve.add("x", &Avs::Config::x, "double[50]");
    withCurve.add("y", &Avs::Config::y, "double[50]");
    service<Avs>("Avs")
        .readsPlain("configGet", &Avs::configGet, withCurve)
        .writesPlain("configSet", &Avs::configSet, parameters)
        .enable();
    service<Bls>("Bls").config(PlainFields<Bls::Config>()
                                   .add("red", &Bls::Config::red)
                                   .add("green.r", &Bls::Config::greenR)
                                   .add("green.b", &Bls::Config::greenB)
                                   .add("blue", &Bls::Config::blue));
    service<Cnr>("Cnr")
        .config(PlainFields<Cnr::Config>().add("tc1", &Cnr::Config::tc1).add("tc2", &Cnr::Config::tc2))
        .enable();
    auto cnr2 = PlainFields<Cnr2::Config>()
                    .add("enable_y", &Cnr2::Config::ynr_enable)
                    .add("enable_c", &Cnr2::Config::cnr_enable)
                    .add("ySigma", &Cnr2::Config::y_sigma)
                    .add("bit", &Cnr2::Config::bit)
                    .add("cnrStrength1", &Cnr2::Config::cnr_strength1)
                    .add("cnrStrength2", &Cnr2::Config::cnr_strength2)
                    .add("ynrStrength1", &Cnr2::Config::ynr_strength1)
                    .add("ynrStrength2", &Cnr2::Config::ynr_strength2)
                    .add("textureMask", &Cnr2::Config::texture_mask_select);
    for (size_t i = 0; i < 4; ++i)
        cnr2.with(("cSigmaLayer" + std::to_string(i)).c_str(), [i](auto& config) -> auto& {
            return config.c_sigma_layer[i];
        });
    for (size_t i = 0; i < 3; ++i)
        cnr2.with(("cSigmaMerge" + std::to_string(i)).c_str(), [i](auto& config) -> auto& {
            return config.c_sigma_merge[i];
        });
    service<Cnr2>("Cnr2").config(cnr2).reset();
    service<Dpf>("Dpf")
        .config(PlainFields<Dpf::Config>()
                    .add("adaptive", &Dpf::Config::isAdaptive)
                    .add("div", &Dpf::Config::divisionFactor)
                    .add("gradient", &Dpf::Config::gradient)
                    .add("min", &Dpf::Config::minimumBound)
                    .add("offset", &Dpf::Config::offset)
                    .add("sigma.green", &Dpf::Config::sigmaGreen)
                    .add("sigma.red.blue", &Dpf::Config::sigmaRedBlue))
        .enable();
    service<Ee>("Ee")
        .config(PlainFields<Ee::Config>()
                    .add("auto", &Ee::Config::isAuto)
                    .add("config", &Ee::Config::config, "CamEngineEeConfig_s"))
        .enable()
        .reset()
        .exposureStatus()
        .tables();
    service<Filter>("Filter")
        .config(PlainFields<Filter::Config>()
                    .add("auto", &Filter::Config::isAuto)
                    .add("denoise", &Filter::Config::denoise)
                    .add("sharpen", &Filter::Config::sharpen)
                    .add("chrV", &Filter::Config::chrV)
                    .add("chrH", &Filter::Config::chrH))
        .enable()
        .reset()
        .exposureStatus()
        .tables();
    service<Lsc>("Lsc")
        .config(PlainFields<Lsc::Config>().add("adaptive", &Lsc::Config::isAdaptive))
        .reads("enabelGet", &Lsc::enabelGet, "enable")
        .writes("enableSet", &Lsc::enableSet, "enable")
        .reads("statusGet", &Lsc::statusGet, "config", "CamEngineLscConfig_s");
    service<Simp>("Simp")
        .config(PlainFields<Simp::Config>()
                    .add("file.name", &Simp::Config::fileName)
                    .add("config", &Simp::Config::config, "CamEngineSimpConfig_s"))
        .enable();

    Avs::Status status;
    const auto id = board::Wire::instance().commandClass("Avs").id("statusGet");
    pSimulator->answerSet(id, "displacement", json.parse(R"({"x": -32768, "y": 32767})"));
    pSimulator->answerSet(id, "offset", json.parse(R"({"x": 1, "y": -2})"));
    sends("Avs", "statusGet", "{}", [&] { Avs().statusGet(status); });
    EXPECT_EQ(status.displacement.x, -32768);
    EXPECT_EQ(status.displacement.y, 32767);
    EXPECT_EQ(status.offset.x, 1);
    EXPECT_EQ(status.offset.y, -2);
    pSimulator->answersClear();
}

void Commands::wideDynamicRange()
{
    using Config = Wdr::Config;
    using V3 = Config::V3;
    using V4 = Config::V4;
    using V5 = Config::V5;
    std::map<std::string, PlainFields<Config>> keys;
    keys["V1"].with(
        "curve", [](auto& config) -> auto& { return config; }, "rest::Wdr::Config");
    keys["V2"].add("strength", &Config::v2, &Config::V2::strength);
    keys["V3"]
        .add("auto", &Config::v3, &V3::isAuto)
        .add("auto.level", &Config::v3, &V3::autoLevel)
        .add("gain.max", &Config::v3, &V3::gainMax)
        .add("strength", &Config::v3, &V3::strength)
        .add("strength.global", &Config::v3, &V3::strengthGlobal);
    keys["V4"]
        .add("auto", &Config::v4, &V4::isAuto)
        .add("auto.level", &Config::v4, &V4::autoLevel)
        .add("strength", &Config::v4, &V4::strength)
        .add("strength.high", &Config::v4, &V4::strengthHigh)
        .add("strength.low", &Config::v4, &V4::strengthLow)
        .add("strength.global", &Config::v4, &V4::strengthGlobal)
        .add("contrast", &Config::v4, &V4::contrast)
        .add("flat.strength", &Config::v4, &V4::flatStrength)
        .add("flat.threshold", &Config::v4, &V4::flatThreshold);
    keys["V5"]
        .add("auto", &Config::v5, &V5::isAuto)
        .add("auto.level", &Config::v5, &V5::autoLevel)
        .add("flat", &Config::v5, &V5::isFlat)
        .add("globalCureveMode", &Config::v5, &V5::isGlobalCureve)
        .add("strength", &Config::v5, &V5::strength)
        .add("strength.high", &Config::v5, &V5::highStrength)
        .add("strength.low", &Config::v5, &V5::lowStrength)
        .add("contrast", &Config::v5, &V5::contrast)
        .add("flat.level", &Config::v5, &V5::flatLevel)
        .add("entropy.slope", &Config::v5, &V5::entropySlope)
        .add("entropy.base", &Config::v5, &V5::entropyBase)
        .add("flat.globalLevel", &Config::v5, &V5::flatLevelGlobal)
        .add("fixedWeight", &Config::v5, &V5::fixedWeight)
        .add("gain.max", &Config::v5, &V5::maxGain)
        .add("gain.min", &Config::v5, &V5::minGain)
        .add("degamma", &Config::v5, &V5::degamma)
        .add("diff.high", &Config::v5, &V5::diffHigh)
        .add("diff.low", &Config::v5, &V5::diffLow)
        .add("weight.log", &Config::v5, &V5::logWeight)
        .add("sat.range", &Config::v5, &V5::satRange)
        .add("sat.threshold_upGain", &Config::v5, &V5::satThrGainUp)
        .add("sat.threshold_downGain", &Config::v5, &V5::satThrGainDown);
    for (const auto& [generation, fields] : keys)
    {
        const auto number =
            static_cast<Wdr::Generation>(board::Wire::instance().commandClass("Wdr").generations.at(generation));
        auto sent = fields;
        if (generation == "V3")
            sent.push_back({"config", [](auto&, auto&) { return Json::Value(); },
                            [](const auto& config) { return jsonOf(config); }});
        Service<Wdr, Wdr::Generation>(*this, "Wdr", generation, number)
            .readsPlain("configGet", &Wdr::configGet, fields)
            .writesPlain("configSet", &Wdr::configSet, sent)
            .enable()
            .reset()
            .exposureStatus()
            .tables();
    }
}

void Commands::dewarp()
{
    service<Dewarp>("Dewarp").enable();
    const auto& record = board::Wire::instance().record("rest::Dewarp::Config");
    for (const auto& map : {std::string(), std::string("\0\xff\x80map", 6), std::string(100000, '\x7f')})
    {
        Dewarp::Config sent;
        randomise(sent, random, record.name);
        Json::Value arguments;
        arguments["config"] = jsonOf(sent);
        arguments["map"] = board::base64Encode(map);
        auto bytes = map;
        expectRequest("Dewarp", "configSet", "", arguments,
                      [&] { Dewarp().configSet(sent, bytes.data(), static_cast<uint32_t>(bytes.size())); });
        Dewarp::Config received;
        void* pMap = nullptr;
        uint32_t size = 0;
        sends("Dewarp", "configGet", "{}", [&] { Dewarp().configGet(received, &pMap, size); });
        EXPECT_EQ(jsonOf(received), arguments["config"]);
        EXPECT_EQ(std::string(static_cast<const char*>(pMap), size), map);
        std::free(pMap);
    }
}

void Commands::services()
{
    std::string text;
    Json::Value jAnswer;
    Json::Value arguments = json.parse(R"({"block.signal": false})");
    expectRequest("Camera", "calibrationGet", "", arguments,
                  [&]
                  {
                      Camera().calibrationGet(text, false);
                      arguments["time"] = pSimulator->requests()[0].query["time"];
                  });
    EXPECT_EQ(text, "calibration_" + arguments["time"].asString() + ".xml");
    sends("Camera", "calibrationSet", R"({"block.signal": true, "calib.file": ")" + text + R"("})",
          [&] { Camera().calibrationSet(text, true); });
    const auto fComplete = [&](const Json::Value& jResponse) { jAnswer = jResponse; };
    pSimulator->answerSet(10003, "error", 0);
    pSimulator->answerSet(10003, "file.name", "b.yuv");
    sends("Camera", "capture", R"({"file.name": "a.yuv", "snapshot.type": 5, "lock.type": 4294967295})",
          [&] { Camera().capture("/home/b/a.yuv", Camera::Yuv, UINT32_MAX, fComplete); });
    EXPECT_EQ(jAnswer["file.name"], "b.yuv");
    pSimulator->answersClear();
    int32_t count = 0;
    int32_t index = 0;
    sends("Camera", "inputInfo", "{}", [&] { Camera().inputInfo(count, index); });
    sends("Camera", "inputSwitch", R"({"index": 1})", [&] { Camera().inputSwitch(1, index, text); });
    EXPECT_EQ(count, 2);
    EXPECT_EQ(text, "sensor-tele.drv");
    sends("Camera", "preview", R"({"preview": true})", [] { Camera().preview(true); });

    sends("Sensor", "driverChange", R"({"driver.file": "sensor-tele.drv"})",
          [] { Sensor().driverChange("sensor-tele.drv"); });
    sends("Sensor", "driverChange", R"({"driver.file": "sensor-main.drv"})",
          [&] { Sensor().driverChange("sensor-main.drv", fComplete); });
    uint32_t value = 0;
    sends("Sensor", "registerSet", R"({"address": 4294967295, "value": 2147483648})",
          [] { Sensor().registerSet(UINT32_MAX, 0x80000000); });
    sends("Sensor", "registerGet", R"({"address": 4294967295})", [&] { Sensor().registerGet(UINT32_MAX, value); });
    EXPECT_EQ(value, 0x80000000);
    text.clear();
    sends("Sensor", "registerDump2File", R"({"file.name": "dump_sensor_register.txt"})",
          [&] { Sensor().registerDump2File(text); });
    EXPECT_TRUE(std::filesystem::is_regular_file(text));

    sends("Reg", "configSet", R"({"address": 1024, "value": 4294967295})", [] { Reg().configSet(1024, UINT32_MAX); });
    sends("Reg", "configGet", R"({"address": 1024})", [&] { Reg().configGet(1024, value); });
    EXPECT_EQ(value, UINT32_MAX);
    sends("Reg", "statusGet", "{}", [&] { Reg().statusGet(jAnswer); });
    EXPECT_EQ(jAnswer[0]["module.id"], 0);
    sends("Reg", "statusGet", R"({"module.id": 1})", [&] { Reg().statusGet(1, jAnswer); });
    EXPECT_EQ(jAnswer[0]["name"], "exp_ctrl");

    sends("Cli", "controlListGet", "{}", [&] { Cli().controlListGet(jAnswer); });
    sends("Cli", "versionGet", "{}", [&] { Cli().versionGet(jAnswer); });
    std::vector<std::string> names{"before"};
    std::ofstream(pSimulator->directory() + "/picture.pgm") << "P5 2 1 255\nab";
    sends("FileSystem", "list", R"({"file.extension": "pgm", "path": "."})",
          [&] { FileSystem().list(names, "pgm", "."); });
    EXPECT_EQ(names.front(), "before");
    EXPECT_EQ(std::count(names.begin(), names.end(), "picture.pgm"), 1);
    Image::Config config;
    config.isLsb = true;
    const auto metadata = random.record(board::Wire::instance().record("PicBufMetaData_s"));
    pSimulator->answerSet(60001, "metadata", board::base64Encode(metadata));
    sends("Image", "load", R"({"file.name": "picture.pgm", "is.lsb": true})",
          [&] { Image().load("picture.pgm", config); });
    EXPECT_EQ(jsonOf(config.metaData), board::base64Encode(metadata));
    sends("FileSystem", "remove", R"({"path": "picture.pgm"})", [] { FileSystem().remove("picture.pgm"); });
}

TEST_F(Commands, TravelAsTheWireSaysInEveryGeneration)
{
    recordModules();
    plainModules();
    wideDynamicRange();
    dewarp();
    services();
    std::set<std::tuple<std::string, std::string, std::string>> commands;
    for (const auto& commandClass : board::Wire::instance().classes())
    {
        for (const auto& command : commandClass.commands)
        {
            if (commandClass.generations.empty())
                commands.emplace(commandClass.name, command.name, "");
            for (const auto& generation : commandClass.generations)
                commands.emplace(commandClass.name, command.name, generation.first);
        }
    }
    EXPECT_EQ(commandsSent, commands);
}

TEST_F(Commands, LeaveTheCallersValuesWhenTheAnswerIsWrong)
{
    const auto failure = [](const std::function<void()>& call) -> std::string
    {
        try
        {
            call();
        }
        catch (const std::exception& exception)
        {
            return exception.what();
        }
        return {};
    };
    Dpf::Config dpf;
    dpf.sigmaGreen = 7;
    dpf.gradient = 2;
    const std::vector<std::tuple<std::string, Json::Value, std::string>> wrongKeys{
        {"sigma.green", 256, "\"sigma.green\" is not an unsigned integer"},
        {"sigma.green", -1, "\"sigma.green\" is not an unsigned integer"},
        {"sigma.green", "7", "\"sigma.green\" is not an unsigned integer"},
        {"gradient", 1e39, "\"gradient\" is not a number of its precision"},
        {"gradient", Json::arrayValue, "\"gradient\" is not a number"},
        {"adaptive", "true", "\"adaptive\" is not a truth value"}};
    for (const auto& [key, value, text] : wrongKeys)
    {
        pSimulator->answerSet(4001801, key, value);
        EXPECT_NE(failure([&] { Dpf().configGet(dpf); }).find(text), std::string::npos) << key << value;
        EXPECT_EQ(dpf.sigmaGreen, 7);
        EXPECT_EQ(dpf.gradient, 2);
        pSimulator->answersClear();
    }
    EXPECT_EQ(failure([&] { Dpf().configGet(dpf); }), "");
    EXPECT_EQ(dpf.sigmaGreen, 4);

    Dg::Config dg{3.5};
    for (const auto& record : {"", "AAAAAAAAAA==", "AAAAAAAAAAAA", "AAAAAAAA AAA=!"})
    {
        pSimulator->answerSet(4001401, "config", record);
        EXPECT_EQ(failure([&] { Dg().configGet(dg); }), "Base64 decode failed: object size not match") << record;
        EXPECT_EQ(dg.gain, 3.5);
    }
    pSimulator->answerSet(4001401, "config", 7.5);
    EXPECT_NE(failure([&] { Dg().configGet(dg); }), "");
    pSimulator->answerSet(4000405, "offset", 3);
    Avs::Status status{{1, 2}, {3, 4}};
    EXPECT_NE(failure([&] { Avs().statusGet(status); }).find("\"offset\" is not a pair"), std::string::npos);
    pSimulator->answerSet(4000405, "offset", json.parse("{\"x\":40000,\"y\":0}"));
    EXPECT_NE(failure([&] { Avs().statusGet(status); }), "");
    EXPECT_EQ(std::tie(status.displacement.x, status.offset.y), std::tuple(1, 4));
    pSimulator->answerSet(4000405, "offset", json.parse("{\"x\":7}"));
    EXPECT_EQ(failure([&] { Avs().statusGet(status); }), "");
    EXPECT_EQ(std::tie(status.offset.x, status.offset.y), std::tuple(7, 0));
    pSimulator->answerSet(30001, "config", "AAAA");
    Dewarp::Config config;
    void* pMap = &config;
    uint32_t size = 1;
    EXPECT_NE(failure([&] { Dewarp().configGet(config, &pMap, size); }), "");
    EXPECT_EQ(pMap, &config);
}

TEST_F(Commands, TakeWhatBoardsAnswerInPlaceOfATruthValue)
{
    bool isEnable = false;
    for (const auto& [value, expected] : std::vector<std::pair<Json::Value, bool>>{
             {2, true}, {0, false}, {-1, true}, {0.5, false}, {false, false}, {true, true}, {Json::nullValue, false}})
    {
        pSimulator->answerSet(4001303, "enable", value);
        DeMosaic().enableGet(isEnable, DeMosaic::V2);
        EXPECT_EQ(isEnable, expected) << value;
    }
}

TEST_F(Commands, HdrStatusStaysWhereTheBoardTellsNone)
{
    auto status = recordZero<Hdr::Status>();
    status.v1_2.mode = Hdr::Status::V1_2::_3Dol;
    Hdr().statusGet(status, Hdr::V2);
    EXPECT_EQ(status.v1_2.mode, Hdr::Status::V1_2::_3Dol);
    Hdr().statusGet(status, Hdr::V1_2);
    EXPECT_EQ(status.v1_2.mode, Hdr::Status::V1_2::_2Dol);
}
} // namespace
