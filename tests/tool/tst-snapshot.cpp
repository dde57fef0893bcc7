// Snapshots of a board's settings: taken, compared, merged, applied and taken back.

#include "tests/support/full-disk.h"
#include "tests/tool/tool-fixture.h"

#include <chrono>
#include <filesystem>
#include <future>
#include <thread>

namespace
{
class Snapshot : public Tool
{
protected:
    Snapshot() { taken = snapshotSave("a.json"); }

    std::string snapshotSave(const char* name)
    {
        const auto ended = run("snapshot");
        EXPECT_EQ(ended.code, 0) << ended.err;
        fileStore(name, ended.out);
        board.requestsClear();
        return ended.out;
    }

    /// The first snapshot with a text in place of another one.
    void editedSave(const char* name, const std::string& from, const std::string& to)
    {
        const auto place = taken.find(from);
        ASSERT_NE(place, std::string::npos) << from;
        auto text = taken;
        fileStore(name, text.replace(place, from.size(), to));
    }

    /// The same with one value of one field; null takes it out.
    void fieldSave(const char* name, const std::string& module, const std::string& field, const Json::Value& value,
                   const char* kind = "config")
    {
        auto jSnapshot = t_common::JsonApp::fromString(taken);
        auto& jPart = jSnapshot["modules"][module][kind];
        jPart[field] = value;
        if (value.isNull())
            jPart.removeMember(field);
        fileStore(name, t_common::JsonApp::toString(jSnapshot, ""));
    }

    size_t writes() const
    {
        size_t count = 0;
        for (const auto& request : board.requests())
            count += contains(request.query["function"].asString(), "Set");
        return count;
    }

    /// What was sent: "Awb- Wb Awb+".
    std::string order() const
    {
        std::string text;
        for (const auto& request : board.requests())
        {
            const auto function = request.query["function"].asString();
            if (!contains(function, "Set"))
                continue;
            const auto name = function.substr(6, function.rfind("::") - 6);
            const auto& jEnable = request.query["enable"];
            text += (text.empty() ? "" : " ") + name + (!jEnable.isBool() ? "" : jEnable.asBool() ? "+" : "-");
        }
        return text;
    }

    std::string taken;
};
} // namespace

TEST_F(Snapshot, NamesWhatTheBoardRefusesAndOnlyThat)
{
    board.faultSet({board::Fault::Error, "Wdr::configGet"_id, -1, 0, "no such block"});
    board.faultSet({board::Fault::RecordShort, "Wb::configGet"_id});
    board.answerSet("Ca::tableGet"_id, "table", 5);
    const auto ended = run("snapshot --chip Mine");
    const auto told = ended.json();
    EXPECT_EQ(ended.code, 0);
    EXPECT_TRUE(contains(ended.err, "7 of ")) << ended.err;
    EXPECT_EQ(told["refused"]["Wdr V4"]["config"], "Wdr.configGet: no such block");
    EXPECT_TRUE(contains(told["refused"]["Ca"]["table"].asString(), "This is no auto table"));
    EXPECT_FALSE(told["modules"].isMember("Wb"));
    EXPECT_TRUE(told["modules"]["Wdr V4"]["enable"].isBool());
    EXPECT_EQ(told["chip"], "Mine");
    EXPECT_TRUE(told["versions"]["versions"].isArray());
    EXPECT_TRUE(contains(told["time"].asString(), "T"));
    fileStore("b.json", ended.out);
    EXPECT_EQ(run("diff b.json").code, 0) << "refused on both sides";
    EXPECT_TRUE(contains(run("diff a.json b.json").out, "there   refused: Wdr.configGet: no such block"));
    // What the board has not cannot be brought back, nor half of the rest.
    const auto applied = run("apply a.json --only Wb,Gc");
    EXPECT_EQ(applied.code, 1);
    EXPECT_TRUE(contains(applied.err, "The board does not tell Wb.config, nothing was sent")) << applied.err;
    EXPECT_EQ(writes(), 0u);
    board.faultSet({board::Fault::Error, "Cli::versionGet"_id});
    EXPECT_EQ(run("snapshot --only Gc").code, 0) << "a board without versions";
    board.faultSet({board::Fault::Close, "Gc::configGet"_id});
    EXPECT_EQ(run("snapshot").code, 3) << "a board that is gone is no refusal";
}

TEST_F(Snapshot, DiffersByFieldElementAndCell)
{
    EXPECT_EQ(run("set Wb.config ccMatrix.Coeff[2]=-0.25").code, 0);
    EXPECT_EQ(run("set Lsc.enable off").code, 0);
    auto table = run("table get Ahdr --json").json();
    table["rows"][1][0] = 77;
    table["rows"].append(table["rows"][0]);
    fileStore("table.json", t_common::JsonApp::toString(table, ""));
    EXPECT_EQ(run("table set Ahdr table.json").code, 0);
    const auto ended = run("diff a.json");
    EXPECT_EQ(ended.code, 1);
    for (const auto* row :
         {"Wb.config      ccMatrix.Coeff[2]  -0.15      -0.25", "Lsc.enable     enable             true       false",
          "Ahdr V1.table  row 2, gain        2          77", "Ahdr V1.table  row 7, gain        not there  1"})
        EXPECT_TRUE(contains(ended.out, row)) << row << "\n" << ended.out;
    EXPECT_EQ(std::count(ended.out.begin(), ended.out.end(), '\n'), 8);
    EXPECT_EQ(run("diff a.json --only Gc").code, 0);
    editedSave("same.json", "\"wbGains.Red\": 1.8", "\"wbGains.Red\": 0.179999999e1");
    EXPECT_EQ(run("diff a.json same.json").code, 0) << "one float, written in two ways";
    editedSave("other.json", "\"wbGains.Red\": 1.8", "\"wbGains.Red\": 1.8000002");
    EXPECT_EQ(run("diff a.json other.json").code, 1);
    editedSave("column.json", "\"gain\",", "\"gane\",");
    EXPECT_TRUE(contains(run("diff a.json column.json").out, "column[0]  gain    gane"));
    // The loop writes these itself.
    board.advance(30);
    EXPECT_EQ(run("diff a.json --only Sensor").code, 0);
    EXPECT_TRUE(contains(run("apply a.json --only Sensor").out, "Nothing differs"));
    EXPECT_EQ(run("set Ae.enable off --generation V1").code, 0);
    EXPECT_EQ(run("diff a.json --only Sensor").code, 1);
}

TEST_F(Snapshot, MergesWithoutGuessing)
{
    fieldSave("red.json", "Wb", "wbGains.Red", 1.25);
    fieldSave("redder.json", "Wb", "wbGains.Red", 1.5);
    Json::Value coefficients(Json::arrayValue);
    for (const double value : {1.85, -0.45, -0.15, -0.3, 9.0, -0.2, -0.05, -0.6, 1.65})
        coefficients.append(value);
    fieldSave("matrix.json", "Wb", "ccMatrix.Coeff", coefficients);
    auto jPart = t_common::JsonApp::fromString(taken);
    jPart["modules"].removeMember("Gc V1");
    fileStore("part.json", t_common::JsonApp::toString(jPart, ""));

    const auto both = run("merge a.json red.json matrix.json");
    ASSERT_EQ(both.code, 0) << both.err;
    EXPECT_EQ(both.json()["modules"]["Wb"]["config"]["wbGains.Red"], 1.25);
    EXPECT_EQ(both.json()["modules"]["Wb"]["config"]["ccMatrix.Coeff"][4], 9.0);
    EXPECT_EQ(run("merge a.json red.json red.json").json()["modules"]["Wb"]["config"]["wbGains.Red"], 1.25);
    fieldSave("dim.json", "Sensor", "_long.gain", 1.5);
    fieldSave("dark.json", "Sensor", "_long.gain", 2.5);
    EXPECT_EQ(run("merge a.json dim.json dark.json").json()["modules"]["Sensor"]["config"]["_long.gain"], 1.5)
        << "a loop's value is nobody's wish";
    fieldSave("fieldless.json", "Wb", "wbGains.Red", Json::Value());
    auto rows = jPart["modules"]["Ahdr V1"]["table"]["rows"];
    rows[0][0] = 7;
    fieldSave("cell.json", "Ahdr V1", "rows", rows, "table");
    rows[0][0] = 1;
    rows.append(rows[0]);
    fieldSave("row.json", "Ahdr V1", "rows", rows, "table");
    const std::pair<std::string, std::string> conflicts[]{
        {"a.json a.json fieldless.json", "Wb.config wbGains.Red: base 1.8, mine 1.8, theirs none"},
        {"a.json cell.json row.json", "Ahdr V1.table rows: base "},
        {"a.json red.json redder.json", "Wb.config wbGains.Red: base 1.8, mine 1.25, theirs 1.5"},
        {"a.json part.json red.json", "Gc V1.config: base there, mine none, theirs there"},
    };
    for (const auto& [files, text] : conflicts)
    {
        const auto ended = run("merge " + files);
        EXPECT_EQ(ended.code, 1);
        EXPECT_EQ(ended.out, "");
        EXPECT_TRUE(contains(ended.err, text)) << ended.err;
    }
    EXPECT_TRUE(contains(run("diff part.json a.json").out, "not there  there"));
    EXPECT_TRUE(run("merge part.json part.json a.json").json()["modules"].isMember("Gc V1")) << "added on one side";
}

TEST_F(Snapshot, RefusesBadFilesBeforeAnythingIsSent)
{
    fieldSave("field.json", "Wb", "wbGains.Rd", 1);
    fieldSave("type.json", "Wb", "ccOffset.Red", 40000);
    fieldSave("list.json", "Wb", "ccMatrix.Coeff", Json::Value(Json::arrayValue));
    fieldSave("module.json", "Wbb", "wbGains.Red", 1);
    Json::Value rows(Json::arrayValue);
    rows.append(Json::Value(Json::arrayValue));
    for (const auto* cell : {"1", "2", "3", "4"})
        rows[0].append(cell);
    fieldSave("cell.json", "Ahdr V1", "rows", rows, "table");
    rows[0].append(5);
    fieldSave("row.json", "Ahdr V1", "rows", rows, "table");
    editedSave("mine.json", "\"chip\": \"\"", "\"chip\": \"Mine\"");
    editedSave("number.json", "\"chip\": \"\"", "\"chip\": []");
    editedSave("chip.json", "\"chip\": \"\"", "\"chip\": \"Other\"");
    editedSave("format.json", "snapshot 1", "snapshot 9");
    editedSave("bool.json", "\"enable\": true", "\"enable\": 7");
    editedSave("twice.json", "\"wbGains.Red\": 1.8", "\"wbGains.Red\": 1.8, \"wbGains.Red\": 2");
    fieldSave("long.json", "Wb", std::string(100'000, 'x'), 1);
    fileStore("cut.json", taken.substr(0, taken.size() / 2));
    fileStore("huge.json", taken + std::string(100'000'000, ' '));
    fileStore("array.json", "[]");
    const std::tuple<std::string, int, std::string> cases[]{
        {"apply field.json", 6, "Wb.config has no field \"wbGains.Rd\"; did you mean wbGains.Red"},
        {"apply type.json", 6, "ccOffset.Red is of type int16_t"},
        {"apply list.json", 6, "a list of 9"},
        {"apply module.json", 6, "no setting \"Wbb.config\"; did you mean Wb.config"},
        {"apply chip.json --chip Mine", 6, "a snapshot of the chip \"Other\", but here is \"Mine\""},
        {"diff chip.json mine.json", 6, "a snapshot of the chip \"Other\", but here is \"Mine\""},
        {"merge a.json chip.json mine.json", 6, "a snapshot of the chip"},
        {"apply number.json", 6, "\"chip\" is no text"},
        {"apply cell.json", 6, "row 1 has a value that is no number"},
        {"apply row.json", 6, "row 1 has not as many values"},
        {"apply format.json", 6, "this is no snapshot"},
        {"apply bool.json", 6, "bool"},
        {"apply twice.json", 6, "Duplicate key: 'wbGains.Red'"},
        {"apply long.json", 6, "Wb.config has no field \"xxx"},
        {"apply cut.json", 6, "JSON"},
        {"apply huge.json", 6, "more than 16777216 bytes"},
        {"diff array.json", 6, "is no object"},
        {"merge a.json a.json cut.json", 6, "cut.json: JSON"},
        {"apply missing.json", 6, "no file that can be read"},
        {"apply a.json --only Wb,Gcc", 2, "no module \"Gcc\" with settings; did you mean Gc"},
        {"apply", 2, "apply FILE"},
        {"snapshot --only Reg", 2, "no module \"Reg\""},
        {"sweep Bls.config red 10:11:0.5", 2, "red=10.5 is refused"},
        {"sweep Bls.config red 1:2", 2, "FIRST:LAST:STEP"},
        {"sweep Bls.config red 1:2:-1", 2, "1 to 1000 values"},
        {"sweep Bls.config rd 1:2:1", 2, "did you mean red"},
        {"sweep Bls.config red 1:2:1 --capture YUV", 2, "do not tell their size"},
    };
    for (const auto& [line, code, text] : cases)
    {
        const auto ended = run(line);
        EXPECT_EQ(ended.code, code) << line;
        EXPECT_TRUE(contains(ended.err, text) && ended.err.size() < 10'000) << line << ": " << ended.err;
        EXPECT_EQ(board.requestCount(), 0u) << line;
    }
}

TEST_F(Snapshot, SendsNothingThatTheBoardCannotTakeOrGiveBack)
{
    Json::Value numbers(Json::arrayValue);
    for (const auto* number : {"nan", "inf", "-inf"})
        for (int i = 0; i < 3; ++i)
            numbers.append(number);
    fieldSave("nan.json", "Wb", "ccMatrix.Coeff", numbers);
    editedSave("column.json", "\"gain\",", "\"gane\",");
    // What a board has told can be read again, if not sent; of its tables it knows the columns.
    EXPECT_TRUE(contains(run("apply nan.json").err, "Wb.config can't be sent, and nothing was"));
    EXPECT_TRUE(contains(run("apply column.json").err, "table has other columns than the board's, nothing was sent"));
    fieldSave("b.json", "Bls", "red", 12);
    auto white = board.recordGet("Wb", 0);
    const auto sound = white;
    std::fill(white.end() - 4, white.end(), '\xff'); // the last of its floats, which is no number then
    board.recordSet("Wb", 0, white);
    EXPECT_TRUE(contains(run("apply a.json --only Wb").err, "wbGains.Blue is nan, which can't be taken back"));
    board.recordSet("Wb", 0, sound);
    {
        const FullDisk full(100);
        EXPECT_EQ(run("apply b.json").code, 6) << "without a way back";
    }
    EXPECT_EQ(writes(), 0u);
    editedSave("chip.json", "\"chip\": \"\"", "\"chip\": \"Other\"");
    fileStore(".tuning-client/setting.json", "{\"chip.name\": \"Mine\"}");
    EXPECT_TRUE(contains(run("apply chip.json").err, "but here is \"Mine\"")) << "the window's chip";
}

TEST_F(Snapshot, AppliesWhatDiffersAndTellsFieldByField)
{
    EXPECT_TRUE(contains(run("apply a.json").out, "Nothing differs"));
    fieldSave("b.json", "Bls", "red", 12);
    board.requestsClear();
    EXPECT_TRUE(contains(run("apply b.json --dry-run").out, "\"red\":12"));
    fieldSave("white.json", "Wb", "wbGains.Red", 1.25);
    EXPECT_TRUE(contains(run("apply white.json --dry-run").out, "{\"enable\":true,\"function\":\"rest::Awb"));
    EXPECT_EQ(writes(), 0u);
    const auto applied = run("apply b.json --json").json();
    EXPECT_EQ(writes(), 1u);
    ASSERT_EQ(applied.size(), 1u);
    EXPECT_EQ(applied[0]["before"], 168);
    EXPECT_EQ(applied[0]["now"], 12);
    EXPECT_EQ(run("apply b.json --json").json().size(), 0u);
    EXPECT_EQ(run("apply a.json --only Wb").code, 0);
    EXPECT_EQ(run("get Bls.config --json").json()["red"], 12) << "of another module";
    // The board's own names stay, which is told.
    Json::Value names(Json::arrayValue);
    for (int i = 0; i < 10; ++i)
        names.append("mine");
    fieldSave("names.json", "Awb", "profilesName", names);
    const auto kept = run("apply names.json");
    EXPECT_EQ(kept.code, 5);
    EXPECT_TRUE(contains(kept.err, "The board has another value than was sent: Awb.config profilesName[0]"))
        << kept.err;
    EXPECT_TRUE(run("get Awb.enable --json").json()["enable"].asBool()) << "off for the time of the change only";
    EXPECT_EQ(run("apply a.json").code, 0) << "that one has ended";
}

TEST_F(Snapshot, StopsWhatHasToRestAndNothingElse)
{
    for (const auto* module : {"Wdr.enable --generation V4", "Cnr.enable"})
        EXPECT_EQ(run("set " + std::string(module) + " on").code, 0);
    auto rows = t_common::JsonApp::fromString(taken)["modules"]["Wdr V4"]["table"]["rows"];
    rows[0][0] = 9;
    const std::tuple<const char*, const char*, const char*, Json::Value, std::string> cases[]{
        {"Wb", "config", "wbGains.Red", 1.25, "Awb- Wb Awb+"},
        {"Sensor", "config", "_long.gain", 2.5, "Ae- Sensor Ae+"},
        {"Cnr", "config", "tc1", 9, "Cnr- Cnr Cnr+"},
        {"Wdr V4", "config", "strength", 9, "Wdr"},
        {"Wdr V4", "config", "auto", true, "Wdr- Wdr Wdr+"},
        {"Wdr V4", "table", "rows", rows, "Wdr- Wdr Wdr+"},
    };
    for (const auto& [module, kind, field, value, expected] : cases)
    {
        fieldSave("b.json", module, field, value, kind);
        // This part alone, of a configuration this field alone.
        auto jSnapshot = t_common::JsonApp::fromString(fileText("b.json"));
        const Json::Value jPart = jSnapshot["modules"][module][kind];
        jSnapshot["modules"] = Json::Value(Json::objectValue);
        if (std::string(kind) == "table")
            jSnapshot["modules"][module][kind] = jPart;
        else
            jSnapshot["modules"][module][kind][field] = jPart[field];
        fileStore("b.json", t_common::JsonApp::toString(jSnapshot, ""));
        board.requestsClear();
        EXPECT_EQ(run("apply b.json").code, 0) << module;
        EXPECT_EQ(order(), expected) << module;
    }
}

TEST_F(Snapshot, TellsWhatWasSentWhereItFailsAndTakesItBack)
{
    fieldSave("b.json", "Bls", "red", 12);
    auto jSnapshot = t_common::JsonApp::fromString(fileText("b.json"));
    jSnapshot["modules"]["Ge"]["enable"] = !jSnapshot["modules"]["Ge"]["enable"].asBool();
    fileStore("b.json", t_common::JsonApp::toString(jSnapshot, ""));
    board.faultSet({board::Fault::Error, "Ge::enableSet"_id, -1, 0, "too hot"});
    const auto red = [this] { return run("get Bls.config --json").json()["red"].asInt(); };
    auto failed = run("apply b.json");
    EXPECT_EQ(failed.code, 1);
    EXPECT_TRUE(contains(failed.out, "Bls.config  red  168     12    12")) << failed.out;
    EXPECT_TRUE(contains(failed.err, "Ge.enableSet: too hot; 1 of 2 commands sent: Bls.configSet; under way: "
                                     "Ge.enableSet; \"tuning-tool apply --rollback\" returns"))
        << failed.err;
    EXPECT_EQ(red(), 12);
    EXPECT_EQ(run("apply --rollback --dry-run").code, 0);
    EXPECT_EQ(red(), 12);
    EXPECT_EQ(run("apply b.json").code, 2) << "still to be taken back";
    EXPECT_EQ(run("apply b.json --force --rollback").code, 1) << "taken back at once";
    EXPECT_EQ(red(), 12) << "as it was before that one";
    EXPECT_EQ(run("apply a.json").code, 0);
    failed = run("apply b.json --rollback");
    EXPECT_TRUE(contains(failed.err, "taken back")) << failed.err;
    EXPECT_EQ(red(), 168);
    // A journal that was cut short still tells the way back, and that of another board does not.
    EXPECT_EQ(run("apply b.json").code, 1);
    const auto path = ".tuning-client/apply-127.0.0.1_" + std::to_string(board.port()) + ".journal";
    const auto journal = fileText(path);
    auto other = journal;
    fileStore(path, other.replace(other.find("127"), 3, "126"));
    EXPECT_TRUE(contains(run("apply --rollback").err, "of another board"));
    fileStore(path, "{");
    EXPECT_TRUE(contains(run("apply a.json").err, "--force goes on from here"));
    fileStore(path, journal + "{\"send");
    EXPECT_EQ(run("apply --rollback").code, 0);
    EXPECT_EQ(red(), 168);
    // A way back that was not gone to its end stays open.
    board.faultsClear();
    EXPECT_EQ(run("apply b.json").code, 0);
    board.faultSet({board::Fault::Error, "Ge::enableSet"_id});
    EXPECT_TRUE(contains(run("apply --rollback").err, "Taking back has not ended, it can be run again"));
    board.faultsClear();
    EXPECT_TRUE(contains(run("apply b.json").err, "was not taken back whole"));
    EXPECT_EQ(run("apply --rollback").code, 0);
    EXPECT_EQ(run("diff a.json").code, 0);
}

TEST_F(Snapshot, SweepsAndComesBack)
{
    std::filesystem::create_directory("out");
    const auto swept =
        run("sweep Ae.config --generation V1 setPoint 40:120:40 --capture RGB --directory out --wait 0.5 --json")
            .json();
    ASSERT_EQ(swept.size(), 3u);
    EXPECT_LT(swept[0]["mean"].asDouble() + 20, swept[2]["mean"].asDouble());
    EXPECT_EQ(swept[1]["now"], 80.0);
    EXPECT_GT(swept[1]["deviation"].asDouble(), 10);
    EXPECT_LT(run("sweep Bls.config red 9:9:1 --wait 0 --json").json()[0]["sharpness"].asDouble(), 0.2)
        << "of neighbours of one colour";
    EXPECT_TRUE(contains(swept[2]["file"].asString(), "out/") && contains(swept[2]["file"].asString(), "setPoint_120"));
    EXPECT_EQ(fileCount("out"), 3u);
    EXPECT_EQ(run("diff a.json --only Ae").code, 0);
    board.faultSet({board::Fault::Error, "Camera::capture"_id});
    EXPECT_EQ(run("sweep Bls.config red 1:3:1 --wait 0").code, 1);
    EXPECT_EQ(run("diff a.json --only Bls").code, 0) << "also where it fails";
    board.faultsClear();
    const auto line = "env --default-signal=PIPE '" TUNING_TOOL
                      "' sweep Bls.config red 4:5:1 --wait 0 --verbose --board " +
                      address();
    EXPECT_EQ(std::system((line + " 2>&1 | head -n 60 >.head").c_str()), 0);
    EXPECT_EQ(run("diff a.json --only Bls").code, 0) << "and where nobody reads the output";
    board.requestsClear();
    const std::string counts = "1234567890:1234567891:1 --generation V1 --dry-run";
    EXPECT_TRUE(contains(run("sweep Ae.config dummy " + counts).out, "_dummy_1234567891\""));
    auto kept = std::async(std::launch::async, [&] { return run("sweep Bls.config red 7:7:1 --wait 2"); });
    EXPECT_TRUE(await([&] { return board.count("Bls::configSet"_id) > 0; }));
    board.answerSet("Bls::configGet"_id, "red", 7);
    const auto ended = kept.get();
    EXPECT_EQ(ended.code, 5);
    EXPECT_TRUE(contains(ended.err, "red is not back at 168: the board has 7")) << ended.err;
}

TEST_F(Snapshot, TellsWhatWasSentWhereTheBoardAnswersInAnotherShape)
{
    auto jSnapshot = t_common::JsonApp::fromString(taken);
    jSnapshot["modules"]["Ahdr V1"]["table"]["rows"][0][0] = 77;
    fileStore("b.json", t_common::JsonApp::toString(jSnapshot, ""));
    board.faultSet({board::Fault::Delay, "Ahdr::tableSet"_id, -1, 500});
    std::thread spoiling(
        [this]
        {
            for (int i = 0; i < 20'000 && board.count("Ahdr::tableSet"_id) == 0; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            board.answerSet("Ahdr::tableGet"_id, "table", "text");
        });
    const auto ended = run("apply b.json");
    spoiling.join();
    EXPECT_EQ(ended.code, 4);
    EXPECT_TRUE(contains(ended.err, "sent: Ahdr.tableSet V1") && contains(ended.err, "--rollback")) << ended.err;
}
