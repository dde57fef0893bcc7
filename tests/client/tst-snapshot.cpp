// Settings changed on every page of the window, told and taken back by the command line.

#include "board-wire/source/field-value.h"
#include "tests/support/page-walk.h"
#include "tests/support/pages-fixture.h"
#include "tests/tool/program.h"

#include <map>

namespace
{
using Words = std::vector<std::string>;

class SnapshotTest : public PagesTest
{
protected:
    using State = std::map<std::string, Json::Value>; ///< what the board answers, by "Wdr V4.config"

    ~SnapshotTest() override
    {
        for (const auto* path : {"first.json", "second.json"})
            QFile::remove(path);
    }

    Words line(const std::string& text, const Words& tail = {}) const
    {
        auto all = words(text, tail);
        all.insert(all.end(), {"--board", "127.0.0.1:" + std::to_string(board->port())});
        return all;
    }

    void snapshotSave(const char* name)
    {
        const auto run = toolRun(line("snapshot"));
        ASSERT_EQ(run.code, 0) << run.err;
        fileStore(name, run.out);
    }

    template <class Each>
    void eachSetting(Each each)
    {
        for (const auto& commandClass : board::Wire::instance().classes())
            for (const auto& command : commandClass.commands)
                for (int i = 0; i < std::max<int>(1, int(commandClass.generations.size())); ++i)
                {
                    Json::Value query(Json::objectValue);
                    query["function"] = "rest::" + commandClass.name + "::" + command.name;
                    if (!commandClass.generations.empty())
                        query["generation"] = i;
                    each(Service(query), command.id, query);
                }
    }

    static std::string name(const Service& service, const std::string& kind)
    {
        return service.className + (service.generationName().empty() ? "" : " " + service.generationName()) + "." +
               kind;
    }

    State state()
    {
        static const std::map<std::string, std::string> kinds{
            {"configGet", "config"}, {"enableGet", "enable"}, {"enabelGet", "enable"}, {"tableGet", "table"}};
        State result;
        eachSetting(
            [&](const Service& service, int64_t id, const Json::Value& query)
            {
                const auto kind = kinds.find(service.method);
                if (kind != kinds.end() && service.className != "Reg")
                    result[name(service, kind->second)] = run(id, query);
            });
        return result;
    }

    /// All but the loops of exposure and white balance, which are off for the pages that tune by hand.
    void switchesSet(bool isEnable)
    {
        eachSetting(
            [&](const Service& service, int64_t id, Json::Value query)
            {
                if (service.method != "enableSet" || service.className == "Ae" || service.className == "Awb")
                    return;
                query["enable"] = isEnable;
                run(id, query);
            });
    }

    /// Fields whose bytes or values differ, with the module before them.
    static std::set<std::string> changed(const State& before, const State& after)
    {
        std::set<std::string> result;
        for (const auto& [part, old] : before)
        {
            const auto& fresh = after.at(part);
            const auto module = part.substr(0, part.find('.'));
            const auto className = module.substr(0, module.find(' '));
            const auto generation = module.size() > className.size() ? module.substr(className.size() + 1) : "";
            const auto command = old.isMember("enable")  ? "enableGet"
                                 : old.isMember("table") ? "tableGet"
                                                         : "configGet";
            for (const auto& key : board::Keys::instance().answer(className, command, generation))
            {
                if (key.recordName().empty())
                {
                    // The window has single precision.
                    const auto& value = old[key.name];
                    const auto& now = fresh[key.name];
                    if (value.isDouble() ? value.asFloat() != now.asFloat() : value != now)
                        result.insert(part + " " + key.name);
                    continue;
                }
                const auto bytes = [&](const Json::Value& answer) { return bytesOf(answer[key.name]); };
                const auto& layout = board::layoutOf(board::Wire::instance().record(key.recordName()), generation);
                for (const auto& field : layout.fields)
                    if (const auto size = field.elementSize() * field.elementCount();
                        bytes(old).compare(field.offset, size, bytes(fresh), field.offset, size) != 0)
                        result.insert(part + " " + field.name);
            }
        }
        return result;
    }

    /// Changes the first value that a page sends, or its mode or switch where it has nothing else, and notes whether it
    /// is free while the module runs.
    bool changeOne(const QString& pageName)
    {
        const bool isWeighing = pageName == "Region Of Interested"; // which takes a running exposure
        const auto exposure = board->recordGet("Sensor", 0);
        const Modals accepting([](QDialog& dialog) { dialog.accept(); });
        aeEnable(isWeighing);
        boardSwitch("Awb::enableSet"_id, false);
        auto& widget = settled(pageName);
        bool isDone = false;
        for (const bool isSwitch : {false, true})
            walk(widget,
                 [&](QWidget* pControl)
                 {
                     const auto* pBox = qobject_cast<QCheckBox*>(pControl);
                     const bool isLate =
                         (pBox && pBox->text().startsWith("Enable ")) || pControl->accessibleName() == "Working Mode";
                     if (!isDone && pControl->isEnabled() && !qobject_cast<QPushButton*>(pControl) &&
                         isLate == isSwitch)
                         isDone = isSent(pControl, isSwitch);
                 });
        aeEnable(false);
        if (isWeighing)
            board->recordSet("Sensor", 0, exposure);
        return isDone;
    }

    bool isSent(QWidget* pControl, bool isSwitch)
    {
        switchesSet(true);
        refresh();
        const bool isFree = pControl->isEnabled();
        switchesSet(false);
        refresh();
        const auto steps = operations(pControl);
        if (steps.empty() || !pControl->isEnabled() || !pControl->isVisible())
            return false;
        board->requestsClear();
        steps.front()();
        for (auto* pButton : pControl->window()->findChildren<QPushButton*>())
            if (writes().empty() && pButton->isVisible() && pButton->text() == "Apply")
                pButton->click();
        for (const auto& request : writes())
            if (const Service service(request.query); service.method == "configSet" && !isSwitch)
                freeWhileOn[name(service, "config")] = isFree;
        return !writes().empty();
    }

    /// What the pages grey while its module runs was sent while it did not, and no other module was stopped.
    void orderCheck(const State& before)
    {
        std::map<std::string, bool> isOn;
        for (const auto& [part, answer] : before)
            if (answer.isMember("enable"))
                isOn[part.substr(0, part.find('.'))] = answer["enable"].asBool();
        for (const auto& request : writes())
        {
            const Service service(request.query);
            const auto part = name(service, "config");
            const auto module = part.substr(0, part.find('.'));
            const bool isKnown = freeWhileOn.count(part) > 0;
            const bool isFree = freeWhileOn[part];
            if (service.method == "enableSet")
            {
                EXPECT_FALSE(isFree) << module << " was stopped for nothing";
                isOn[module] = request.query["enable"].asBool();
            }
            else if (isKnown && !isFree)
            {
                EXPECT_FALSE(isOn[module == "Wb" ? "Awb" : module]) << part;
            }
        }
    }

    std::map<std::string, bool> freeWhileOn;
};
} // namespace

TEST_F(SnapshotTest, TellsWhatThePagesHaveChangedAndBringsItBack)
{
    switchesSet(true);
    const auto first = state();
    snapshotSave("first.json");
    switchesSet(false);
    QStringList silent;
    for (const auto& pageName : names())
        if (!changeOne(pageName))
            silent.append(pageName);
    boardSwitch("Awb::enableSet"_id, true);
    EXPECT_EQ(str(silent.join(", ")), "3A Config, Calibration Data, ISP Register, Register") << "files and registers";
    const auto second = state();
    snapshotSave("second.json");

    const auto diff = toolRun(line("diff first.json --json"));
    EXPECT_EQ(diff.code, 1);
    std::set<std::string> told;
    for (const auto& one : diff.json())
        told.insert(one["part"].asString() + " " + one["field"].asString());
    const auto meant = changed(first, second);
    std::vector<std::string> others;
    std::set_symmetric_difference(told.begin(), told.end(), meant.begin(), meant.end(), std::back_inserter(others));
    EXPECT_EQ(others, Words());
    EXPECT_GT(told.size(), 80u);

    switchesSet(true);
    const auto running = state();
    board->requestsClear();
    const auto apply = toolRun(line("apply first.json"));
    EXPECT_EQ(apply.code, 0) << apply.err;
    EXPECT_EQ(changed(state(), first), std::set<std::string>());
    orderCheck(running);
    EXPECT_EQ(toolRun(line("diff first.json")).code, 0);
}

TEST_F(SnapshotTest, ComesBackWhereAnApplyWasKilled)
{
    const auto edit = [](std::string text, const std::string& from, const std::string& to)
    { return text.replace(text.find(from), from.size(), to); };
    snapshotSave("first.json");
    fileStore("second.json",
              edit(edit(edit(fileText("first.json"), "\"red\": ", "\"red\": 9"), "\"tc1\": ", "\"tc1\": 1"),
                   "\"uvGain\": ", "\"uvGain\": 1"));
    EXPECT_EQ(toolRun(line("apply --rollback")).code, 6) << "nothing to take back";
    const auto before = state();
    // A signal that can be taken ends it between two commands.
    QProcess tool;
    const auto stopAt = [&](int64_t id, void (QProcess::*pStop)())
    {
        const auto address = QString("127.0.0.1:%1").arg(board->port());
        tool.start(TUNING_TOOL, {"apply", "second.json", "--board", address});
        EXPECT_TRUE(waitUntil([&] { return board->count(id) > 0; }));
        EXPECT_TRUE(contains(toolRun(line("apply --rollback")).err, "Another apply to this board is running"));
        (tool.*pStop)();
        EXPECT_TRUE(waitUntil([&] { return tool.state() == QProcess::NotRunning; }));
        board->faultsClear();
    };
    board->faultSet({board::Fault::Delay, "Cnr::configSet"_id, -1, 500});
    stopAt("Cnr::configSet"_id, &QProcess::terminate);
    EXPECT_EQ(tool.exitCode(), 7);
    EXPECT_TRUE(
        tool.readAllStandardError().contains("Interrupted; 2 of 3 commands sent: Bls.configSet, Cnr.configSet;"));
    EXPECT_EQ(toolRun(line("apply --rollback")).code, 0);
    EXPECT_EQ(changed(before, state()), std::set<std::string>());

    board->faultSet({board::Fault::Silence, "Ee::configSet"_id});
    stopAt("Ee::configSet"_id, &QProcess::kill);
    EXPECT_NE(changed(before, state()), std::set<std::string>());
    const auto again = toolRun(line("apply second.json"));
    EXPECT_EQ(again.code, 2);
    EXPECT_TRUE(contains(again.err, "2 of 3 commands sent: Bls.configSet, Cnr.configSet; under way: Ee.configSet"))
        << again.err;
    EXPECT_EQ(toolRun(line("apply --rollback")).code, 0);
    EXPECT_EQ(changed(before, state()), std::set<std::string>());
    EXPECT_EQ(toolRun(line("apply second.json")).code, 0) << "nothing is unfinished any more";
    EXPECT_EQ(toolRun(line("apply --rollback")).code, 0) << "nor is a whole one for good";
    EXPECT_EQ(changed(before, state()), std::set<std::string>());
}
