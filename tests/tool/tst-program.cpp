#include "board-wire/source/base64.h"
#include "tests/tool/tool-fixture.h"

#include <algorithm>
#include <csignal>
#include <future>
#include <set>
#include <sstream>

TEST_F(Tool, SetsNamedFieldsAndLeavesTheRest)
{
    // Padding travels, and what is no truth value.
    auto before = board.recordGet("Wb", 0);
    before[42] = '\x5a';
    board.recordSet("Wb", 0, before);
    const auto set = run("set Wb.config wbGains.Red=1.5 ccMatrix.Coeff[2]=-0.25 ccOffset.Blue=-0x7");
    EXPECT_EQ(set.code, 2) << "a hexadecimal number has no sign";
    const auto done = run("set Wb.config wbGains.Red=1.5 ccMatrix.Coeff[2]=-0.25 ccOffset.Blue=-7");
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_TRUE(contains(done.out, "ccMatrix.Coeff[2]  -0.15   -0.25  -0.25")) << done.out;
    auto expected = before;
    const float values[]{1.5f, -0.25f};
    expected.replace(44, 4, reinterpret_cast<const char*>(&values[0]), 4);
    expected.replace(8, 4, reinterpret_cast<const char*>(&values[1]), 4);
    expected.replace(40, 2, "\xf9\xff");
    EXPECT_EQ(board.recordGet("Wb", 0), expected);

    EXPECT_EQ(run("set Hdr.config --generation V2 trans_range[2][1]=0.5").code, 0);
    EXPECT_EQ(run("get Hdr.config --generation V2 --json").json()["config"]["trans_range"][2][1], 0.5);
    EXPECT_EQ(run("set Lsc.enable off").code, 0);
    EXPECT_EQ(run("set Dg.config -.5 --json").json()["gain"]["now"], -0.5);
    EXPECT_FALSE(run("get Lsc.enable --json").json()["enable"].asBool());
    EXPECT_EQ(run("set Awb.config", {"profilesName[1]=day light"}).code, 5) << "the board's own";
    // A record that is only sent has the values of the plain keys.
    EXPECT_EQ(run("set Wdr.config --generation V3 strength.global=77").code, 0);
    const auto sent = board.requests().end()[-2].query["config"].asString();
    EXPECT_EQ(board::base64Decode(sent)->substr(16, 4), std::string("\x4d\0\0\0", 4));
    const auto written = run("set Reg.config address=0x610 value=1");
    EXPECT_EQ(written.code, 1);
}

TEST_F(Tool, RefusesBeforeAnythingIsSent)
{
    fileStore("long.json", R"({"columns": ["a"], "rows": [[1, 2]]})");
    const std::pair<std::string, std::string> cases[]{
        {"get Wb.confg", "did you mean Wb.config"},
        {"get Wdr.config", "--generation: V1 V2 V3 V4 V5"},
        {"get Wdr.config --generation V6", "no generation \"V6\""},
        {"get Wb.config --generation V1", "no generations"},
        {"get Wbb.config", "did you mean Wb"},
        {"set Wb.config wbGain.Red=1", "did you mean wbGains.Red"},
        {"set Wb.config wbGains.Red=1e39", "float"},
        {"set Wb.config wbGains.Red=nan", "float"},
        {"set Wb.config ccOffset.Red=32768", "-32768 to 32767"},
        {"set Wb.config ccOffset.Red=1.5", "int16_t"},
        {"set Wb.config ccOffset.Red=", "int16_t"},
        {"set Wb.config ccMatrix.Coeff[9]=1", "0 to 8"},
        {"set Wb.config ccMatrix.Coeff=[1,2]", "a list of 9"},
        {"set Wb.config config=AAAA", "60 bytes"},
        {"set Awb.enable maybe", "bool"},
        {"set Awb.config profilesName[0]=123456789012345678901", "at most 20 bytes"},
        {"set Bls.config red=-1", "0 to 65535"},
        {"set Bls.config red[0]=1", "no field"},
        {"call Bls.configSet red=1", "blue is missing"},
        {"call Wb.configSet", "config is missing"},
        {"register read 0x100000000", "0 to 4294967295"},
        {"capture --type RAW13", "RAW08 RAW10"},
        {"capture --frames 0", "1 to 1000"},
        {"get Wb.config --frames 3", "no option --frames"},
        {"get Wb.config --port /dev/x", "give one"},
        {"get Wb.config --port=", "--port is empty"},
        {"get Wb.config --generation=", "--generation is empty"},
        {"file remove a?b", "can't be named"},
        {"get", "Usage: tuning-tool get"},
        {"gte Wb.config", "did you mean get"},
        {"get Wdr.config --generaton V4", "did you mean --generation?"},
        {"get Cac.config", "Cac has enable, status"},
        {"table get Wb", "no auto table, but Ahdr Ca"},
        {"set Bls.config red=1 red=2", "red is given twice"},
        {"register write 0x300 -5", "0 to 4294967295"},
    };
    for (const auto& [text, expected] : cases)
    {
        const auto refused = run(text);
        EXPECT_EQ(refused.code, 2) << text;
        EXPECT_TRUE(contains(refused.err, expected)) << text << ": " << refused.err;
        EXPECT_EQ(refused.out, "") << text;
    }
    EXPECT_EQ(run("table set Ahdr long.json").code, 6);
    EXPECT_EQ(run("call Dewarp.configSet map=@missing").code, 6);
    EXPECT_EQ(run("set Wb.config wbGains.Red=1.5 --dry-run").code, 0);
    EXPECT_EQ(board.count("Wb::configSet"_id), 0u);
    EXPECT_EQ(board.requestCount(), 1u) << "the read of the dry run";
}

TEST_F(Tool, TellsHowTheBoardAnswered)
{
    using board::Fault;
    const std::tuple<Fault, int, std::string> cases[]{
        {Fault{Fault::Error, "Wb::configGet"_id, -1, 0, "too hot"}, 1, "Wb.configGet: too hot"},
        {Fault{Fault::ErrorBare, "Wb::configGet"_id}, 1, "without a reason"},
        {Fault{Fault::MessageControl, "Wb::configGet"_id}, 1, "Wb.configGet: ?[31mred??  ?<b>bold</b>"},
        {Fault{Fault::MessageLong, "Wb::configGet"_id}, 1, "mmm..."},
        {Fault{Fault::Close, "Wb::configGet"_id}, 3, "closed before the end of the answer"},
        {Fault{Fault::RecordShort, "Wb::configGet"_id}, 4, "60 bytes"},
        {Fault{Fault::WrongTypes, "Wb::configGet"_id}, 4, "config is not of type record"},
        {Fault{Fault::NotJson, "Wb::configGet"_id}, 4, "JSON"},
        {Fault{Fault::NotJson, "Wb::configGet"_id, -1, 0, "{}"}, 4, "config is missing"},
    };
    for (const auto& [fault, code, text] : cases)
    {
        board.faultSet(fault);
        const auto failed = run("get Wb.config");
        EXPECT_EQ(failed.code, code) << fault.kind << failed.err;
        EXPECT_TRUE(contains(failed.err, text)) << failed.err;
        EXPECT_LT(failed.err.size(), 5000u);
        EXPECT_TRUE(std::none_of(failed.err.begin(), failed.err.end() - 1, [](unsigned char c) { return c < 0x20; }));
        EXPECT_EQ(failed.out, "");
    }
    board.faultSet({Fault::NotJson, "Awb::reset"_id, 1, 0, R"({"error": 5, "message": "REST SIMULATE ON"})"});
    EXPECT_EQ(run("call Awb.reset").code, 0) << "a board that only plays";
    board.answerSet("Cli::versionGet"_id, "ver\x7fsion", "1\x7f");
    for (const auto* form : {"call Cli.versionGet", "call Cli.versionGet --json"})
        EXPECT_TRUE(contains(run(form).out, "ver?sion") && !contains(run(form).out, "\x7f")) << form;
    board.faultSet({Fault::Delay, "Sensor::driverChange"_id, 1, 2200});
    EXPECT_EQ(run("call Sensor.driverChange driver.file=sensor-tele.drv").code, 0) << "loading takes its time";
    board.faultSet({Fault::Error, "Camera::capture"_id, -1, 0, "no sensor"});
    EXPECT_EQ(run("capture").code, 1);
    board.listenSet(false);
    EXPECT_EQ(run("get Wb.config").code, 3);
    EXPECT_EQ(toolRun(words("file put board/chart.pgm --board " + address())).code, 3);
}

TEST_F(Tool, ShowsWhatItWouldSend)
{
    const auto dry = run("call Wb.configSet wbGains.Red=1 --dry-run --json").json();
    EXPECT_EQ(dry["request"]["function"], "rest::Wb::configSet");
    EXPECT_EQ(dry["records"]["config"], std::string(88, '0') + "0000803f" + std::string(24, '0'));
    const auto text = run("call Dg.configSet gain=1 --dry-run").out;
    EXPECT_TRUE(contains(text, "config, 8 bytes\n  00 00 00 00 00 00 f0 3f\n")) << text;
    const std::pair<std::string, std::string> cases[]{
        {"file get chart.pgm", "download"},
        {"file put board/chart.pgm", "upload"},
        {"file remove chart.pgm", "rest::FileSystem::remove"},
        {"file list xml", "rest::FileSystem::list"},
        {"capture", "rest::Camera::capture"},
        {"register write 1 2", "rest::Reg::configSet"},
        {"register dump", "rest::Reg::statusGet"},
        {"register dump --sensor", "rest::Sensor::registerDump2File"},
        {"table get Ahdr", "rest::Ahdr::tableGet"},
    };
    for (const auto& [line, function] : cases)
    {
        EXPECT_EQ(run(line + " --dry-run --json").json()["request"]["function"], function) << line;
        EXPECT_TRUE(contains(run(line + " --dry-run").out, function)) << line;
    }
    // A text may look like a list.
    const auto config = run("call Awb.configSet profilesName[0]=[a] --dry-run --json").json()["records"]["config"];
    EXPECT_TRUE(contains(config.asString(), "5b615d00")) << config;
    EXPECT_EQ(board.requestCount(), 0u);
}

TEST_F(Tool, MovesFiles)
{
    fileStore("new.xml", std::string("\0new\n", 5));
    EXPECT_EQ(run("file put new.xml").out, "sent new.xml\n");
    EXPECT_TRUE(contains(run("file list xml").out, "new.xml\n"));
    std::filesystem::create_directory("here");
    EXPECT_EQ(run("file get new.xml --directory here").out, "here/new.xml\n");
    EXPECT_EQ(fileText("here/new.xml"), fileText("new.xml"));
    EXPECT_EQ(run("file get new.xml --directory here").code, 6) << "it is there";
    EXPECT_EQ(run("file get new.xml --directory here --force").code, 0);
    fileStore("new.xml", "newer");
    board.faultSet({board::Fault::Error, board::Fault::Upload, 1});
    EXPECT_EQ(run("file put new.xml").code, 5) << "the board still has the other one";
    EXPECT_EQ(run("file put new.xml missing.xml --json").json()[0], "new.xml") << "one has been sent";
    EXPECT_EQ(fileText("board/new.xml"), "newer");
    EXPECT_EQ(run("file remove new.xml --json").json()[0], "new.xml");
    EXPECT_EQ(fileCount("board"), 5u);
    EXPECT_EQ(run("file get chart.pgm missing.xml --directory here").out, "here/chart.pgm\n") << "one has arrived";
    board.answerSet("FileSystem::list"_id, "file.list", Json::Value(Json::arrayValue));
    EXPECT_EQ(run("file put table.json").code, 6) << "no such file";
    EXPECT_EQ(run("file put here/new.xml").code, 1) << "the board has not kept it";
    board.answersClear();
    EXPECT_EQ(run("file get missing.xml").code, 1) << "a board's excuse is no file";
}

TEST_F(Tool, TakesPictures)
{
    std::filesystem::create_directory("here");
    EXPECT_EQ(run("capture --directory missing").code, 6);
    EXPECT_EQ(board.count("Camera::capture"_id), 0u);
    for (const auto* name : {"../..", "a/.profile", "a?b.pgm"})
    {
        board.faultSet({board::Fault::HostileNames, "Camera::capture"_id, 1, 0, name});
        EXPECT_EQ(run("capture").code, 4);
    }
    // A picture takes longer than other commands may.
    board.faultSet({board::Fault::Delay, "Camera::capture"_id, 1, 2200});
    const auto pictures = run("capture --type RAW12 --frames 2 --lock ae,awb --directory here --json").json();
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(fileText(pictures[1].asString()).substr(0, 2), "P5");
    EXPECT_EQ(board.requests().end()[-2].query["lock.type"], 6);
}

// What was there stays, and no file is there in part.
TEST_F(Tool, FetchesFilesWholeOrNotAtAll)
{
    using board::Fault;
    const std::tuple<Fault::Kind, int, int> cases[]{
        {Fault::Close, 0, 3},
        {Fault::BodyShort, 0, 3},
        {Fault::Drip, SIGTERM, -SIGTERM},
        {Fault::Drip, SIGKILL, -SIGKILL},
    };
    std::filesystem::create_directory("here");
    fileStore("here/chart.pgm", "mine");
    std::filesystem::create_symlink("here/chart.pgm", "chart.pgm");
    for (const auto& [kind, signal, code] : cases)
    {
        board.requestsClear();
        board.faultSet({kind, Fault::Download});
        auto run = std::async(std::launch::async, [&] { return this->run("file get chart.pgm --force"); });
        if (signal != 0)
        {
            EXPECT_TRUE(await([&] { return board.count(Fault::Download) > 0; }));
            kill(std::stoi(fileText(".pid")), signal);
        }
        EXPECT_EQ(run.get().code, code) << kind << " " << signal;
        EXPECT_EQ(fileText("here/chart.pgm"), "mine");
        EXPECT_EQ(fileCount("here"), signal == SIGKILL ? 2u : 1u) << kind << " " << signal;
    }
    board.faultsClear();
    EXPECT_EQ(run("file get chart.pgm --force").code, 0);
    EXPECT_EQ(fileText("here/chart.pgm"), fileText("board/chart.pgm"));
    EXPECT_TRUE(std::filesystem::is_symlink("chart.pgm"));
}

TEST_F(Tool, MovesTablesAndRegisters)
{
    auto table = run("table get Ahdr --json").json();
    const auto tableSet = [&]
    {
        fileStore("table.json", t_common::JsonApp::toString(table, ""));
        return run("table set Ahdr table.json").code;
    };
    table["rows"][1][2] = 0.125;
    EXPECT_EQ(tableSet(), 0);
    EXPECT_TRUE(contains(run("table get Ahdr").out, "2     0.32  0.125")) << run("table get Ahdr").out;
    board.answerSet("Ahdr::tableGet"_id, "table", table);
    std::swap(table["columns"][0], table["columns"][1]);
    EXPECT_EQ(tableSet(), 5) << "other columns";
    table["rows"].resize(3);
    EXPECT_EQ(tableSet(), 5) << "the board keeps its own";

    EXPECT_EQ(run("register write 0x600 9").out, "0x00000600 = 0x00000009 (9)\n");
    EXPECT_EQ(run("register read 1536 0x404 --json").json().size(), 2u);
    EXPECT_EQ(run("register write 0x600 9.0").code, 0);
    EXPECT_EQ(run("register write 0x3001 5 --sensor").out, "0x00003001 = 0x00000005 (5)\n");
    EXPECT_TRUE(contains(run("register write 0x610 1").out, "write only"));
    EXPECT_TRUE(contains(run("register write 0x610 1 --json").json()["message"].asString(), "write only"));
    EXPECT_EQ(run("register write 0x60c 1").code, 1);
    const auto dump = run("register dump --json").json();
    EXPECT_EQ(dump[1]["map"][0]["value"], "0x00000009");
    EXPECT_EQ(run("register dump --sensor --json").json()[0], "./dump_sensor_register.txt");
    EXPECT_TRUE(contains(fileText("dump_sensor_register.txt"), "0x00003001 0x00000005"));
}

TEST_F(Tool, FindsItsBoard)
{
    EXPECT_EQ(toolRun(words("get Wb.config")).code, 2) << "none stored";
    std::filesystem::create_directory(".tuning-client");
    const std::string stored = R"({"server": {"type": "http", "index": 1, "port": ")" + board.serialName() +
                               R"(", "hosts": [{"ip": "x"}, {"ip": "127.0.0.1", "port": )" +
                               std::to_string(board.port()) + "}]}}";
    fileStore(".tuning-client/preferences.json", stored);
    EXPECT_EQ(toolRun(words("get Wb.config")).code, 0);
    EXPECT_EQ(board.requests().back().method, "POST");
    auto serial = stored;
    serial.replace(serial.find("http"), 4, "uart");
    fileStore(".tuning-client/preferences.json", serial);
    EXPECT_EQ(toolRun(words("set Wb.config wbGains.Blue=1.25")).code, 0);
    EXPECT_EQ(board.requests().back().method, "");
    board.requestsClear();
    for (const auto* line : {"file get chart.pgm", "capture", "register dump --sensor"})
        EXPECT_EQ(toolRun(words(line)).code, 3) << "no files on this line";
    EXPECT_EQ(board.count("Camera::capture"_id) + board.count("Sensor::registerDump2File"_id), 0u);
    EXPECT_EQ(fileText(".tuning-client/preferences.json"), serial);
    EXPECT_EQ(toolRun(words("get Wb.config --port /dev/missing")).code, 3);
}

TEST_F(Tool, TellsWhatItKnows)
{
    const auto list = toolRun(words("list --json")).json();
    std::set<int> ids;
    for (const auto& command : list)
        ids.insert(command["id"].asInt());
    EXPECT_EQ(ids.size(), 178u);
    const std::pair<std::string, std::string> fields[]{
        {"Wb.configSet", "ccOffset.Red    int16_t   -2048 to 2047 by 1    \"Red Offset\"\n"},
        {"Wb.configSet", "ccMatrix.Coeff  float[9]  -8 to 7.996 by 0.004  \"Red 0\" ... \"Blue 2\"\n"},
        {"Wb.configGet", "ccOffset.Red    int16_t   -32768 to 32767\n"},
        {"Wb.config", "Wb.configSet, number 4003002\n"},
        {"Dnr2.configSet --generation V1", "sigma                    double   0.1 to 12 by 0.1  \"Sigma\"\n"},
        {"Dnr2.configSet --generation V5", "sigma                 double   0.01 to 100 by 0.01        \"Sigma\"\n"},
        {"Wdr.configSet --generation V3", "config:strength  int32_t  0 to 128 by 1  \"Strength\"\n"},
        {"Gc.configSet --generation V2", "curves[2].gamma   double        1 to 4 by 0.01             \"Gamma\"\n"},
        {"Gc.configSet --generation V1", "curve.y       uint32_t[17]  0 to 4294967295\n"},
    };
    for (const auto& [name, line] : fields)
    {
        const auto shown = toolRun(words("list " + name)).out;
        EXPECT_TRUE(contains(shown, line)) << shown;
    }
    const auto shape = toolRun(words("list Dnr2.configSet --generation V1 --json")).json()[0];
    EXPECT_EQ(shape["request"]["fields"][1]["window"]["maximum"], 100) << shape;
    EXPECT_TRUE(contains(run("get Sensor.config").out, "  s\n")) << "units";
    std::istringstream histograms(run("get Ae.status --generation V2").out);
    for (std::string line; std::getline(histograms, line);)
        EXPECT_LT(line.size(), 120u) << "a list of 256 goes on in other lines";
    const auto help = toolRun({"--help"}).out;
    EXPECT_TRUE(contains(help, "Exit codes:") && contains(help, "\n  6  "));
    const std::pair<std::string, std::string> completions[]{
        {"set Wb.config wb", "wbGains.Blue=\nwbGains.GreenB=\nwbGains.GreenR=\nwbGains.Red=\n"},
        {"get Lsc.e", "Lsc.enabel\n"},
        {"table s", "set\n"},
        {"get Wdr.config --generation V", "V1\nV2\nV3\nV4\nV5\n"},
        {"capture --fr", "--frames\n"},
        {"--board x --json set Wb.c", "Wb.config\n"},
        {"set --generation V5 Wdr.config --json strength.", "strength.high=\nstrength.low=\n"},
        {"set Wdr.config --generation=V3 gainM", "gainMax=\n"},
        {"set Wdr.config --generation=V4", "--generation=V4\n"},
        {"capture --type YU", "YUV\n"},
        {"capture --lock=ae,a", "--lock=ae,ae\n--lock=ae,af\n--lock=ae,awb\n"},
        {"sweep Bls.config --capture RG", "RGB\n"},
        {"sweep Bls.config re", "red\n"},
        {"snapshot --only Dn", "Dnr2\nDnr3\n"},
        {"--jso", "--json\n"},
        {"file get --directory h", ""},
    };
    for (const auto& [text, expected] : completions)
        EXPECT_EQ(toolRun(words("complete " + text)).out, expected);
    const std::string shell = R"(set -e; "$0" completion >.script; . ./.script
COMP_LINE="$0 set Ee.config auto=" COMP_POINT=999; _tuning_tool; test "${COMPREPLY[*]}" = ""
COMP_LINE="$0 set Wb.config wb"; _tuning_tool; test "${#COMPREPLY[@]} ${COMPREPLY[3]}" = "4 wbGains.Red=")";
    EXPECT_EQ(std::system(("bash -c '" + shell + "' '" TUNING_TOOL "'").c_str()), 0);
    EXPECT_EQ(WEXITSTATUS(std::system("'" TUNING_TOOL "' chip pages >/dev/full 2>.err")), 6);
    const auto loud = run("get Wb.config --verbose --json");
    EXPECT_TRUE(contains(loud.err, "[Client] >>> {") && loud.json()["config"].isObject()) << loud.err;
}

TEST_F(Tool, ChecksChipDescriptions)
{
    fileStore("bad.xml", "<Table ChipName='X' InputMax='65' IspMax='a' version='1'>\n"
                         "<Page Name='auto exposure'/>\n"
                         "<Group>\n<Page Name='Dewarp'/></Group>\n"
                         "<Page Name='Dewarp'/>\n<Page/>\n</Table>");
    std::string good = "<Table ChipName='X' InputMax='64' IspMax='0' Version='1'>";
    const auto pages = toolRun(words("chip pages --json")).json();
    for (const auto& page : pages)
        good += "<Page Name='" + page.asString() + "'/>";
    fileStore("good.xml", good + "</Table>");
    EXPECT_EQ(toolRun(words("chip check good.xml")).out, "");
    const auto bad = toolRun(words("chip check good.xml bad.xml"));
    EXPECT_EQ(bad.code, 1);
    for (const auto* line : {"bad.xml:1: attribute \"version\" means nothing; did you mean Version?",
                             "bad.xml:1: InputMax is 65", "bad.xml:1: IspMax is \"a\"",
                             "bad.xml:2: no page bears the name \"auto exposure\"; did you mean Auto Exposure",
                             "bad.xml:3: \"Group\" is no Page", "bad.xml:4: page \"Dewarp\" is no child of Table",
                             "bad.xml:5: page \"Dewarp\" is named again, first in line 4", "bad.xml:6: a page without",
                             "bad.xml: has the ChipName of good.xml"})
        EXPECT_TRUE(contains(bad.out, line)) << line << "\n" << bad.out;
    EXPECT_EQ(std::count(bad.out.begin(), bad.out.end(), '\n'), 9);
    std::string many = "<Table ChipName='Y' InputMax='1' IspMax='1' Version='1'>";
    for (int i = 0; i < 1001; ++i)
        many += "<Page Name='Dewarp'/>";
    fileStore("many.xml", many);
    const auto broken = toolRun(words("chip check many.xml")).out;
    std::string deep = good;
    for (int i = 0; i < 300; ++i)
        deep += "<Page Name='Dewarp'>";
    fileStore("deep.xml", deep);
    EXPECT_TRUE(contains(toolRun(words("chip check deep.xml")).out, "nested too deeply"));
    EXPECT_TRUE(contains(broken, "many.xml: has 1001 pages") && contains(broken, "many.xml:1: is not well-formed"));
    const auto unread = toolRun(words("chip check board bad.xml --json"));
    EXPECT_EQ(unread.code, 6) << "a directory";
    EXPECT_EQ(unread.json().size(), 8u) << "the other file is checked all the same";
}
