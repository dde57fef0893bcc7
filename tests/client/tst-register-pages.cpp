#include "tests/support/board-fixture.h"
#include "tests/support/editing.h"
#include "tuning-client/source/control/register-log.h"
#include "tuning-client/source/control/register-table.h"
#include "tuning-client/source/file/register-document.h"
#include "tuning-client/source/module/isp-register-widget.h"
#include "tuning-common/source/json-app.h"

using board::Fault;

namespace
{
constexpr auto module = "Main Control";
constexpr int readWrite = 0; ///< its row

/// A line for each register of the file: module, name, size, type, address, value before, text.
QString registersOf(const QByteArray& bytes)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(bytes)) << str(bytes);
    QString lines;
    const auto root = document.documentElement();
    for (auto child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
    {
        for (auto element = child.firstChildElement(); !element.isNull(); element = element.nextSiblingElement())
        {
            QStringList texts{root.tagName(), child.tagName(), element.tagName()};
            for (const auto* name : {"size", "type", "address", "PreValue"})
                texts.append(element.attribute(name));
            lines += texts.join("|") + "|" + element.text() + "\n";
        }
    }
    return lines;
}

Json::Value json(const std::string& text) { return t_common::JsonApp::fromString("{\"a\":" + text + "}")["a"]; }

void press(QPushButton* pButton) { QTest::mouseClick(pButton, Qt::LeftButton); }

class IspRegisterPageTest : public BoardTest
{
protected:
    IspRegisterPageTest()
    {
        for (const auto& name : QDir().entryList({"20*.xml"}))
            QFile::remove(name);
        board->requestsClear();
    }

    /// The last command of that number as "address value".
    QString last(int64_t id) const
    {
        QString last;
        for (const auto& request : board->requests())
            if (request.id == id)
                last = QString::asprintf("%x %x", request.query["address"].asUInt(), request.query["value"].asUInt());
        return last;
    }

    QMenu* menuOpen()
    {
        auto* pMenu = widget.pPushButtonPopup->menu();
        emit pMenu->aboutToShow();
        return pMenu;
    }

    void choose(const QString& name)
    {
        for (auto* pAction : menuOpen()->actions())
            if (pAction->text() == name)
                pAction->trigger();
    }

    void select(int row) { widget.pTreeView->setCurrentIndex(widget.pStandardItemModel->index(row, 0)); }

    QString cell(int row, RegisterTable::Column column) { return widget.pTreeView->text(row, column); }

    QString fields()
    {
        return widget.pLineEditHexValue->text() + " " + widget.pLineEditDecValue->text() + " " +
               widget.pLineEditBinValue->text();
    }

    /// The text of the box that stands, which is closed.
    QString error()
    {
        QString text;
        for (auto* pBox : widget.findChildren<QErrorMessage*>())
        {
            if (pBox->isVisible())
                text += pBox->findChild<QTextEdit*>()->toPlainText();
            pBox->close();
        }
        return text;
    }

    /// Presses the button and gives its dialog that file; a null name cancels. What the dialog was told comes back.
    QString pressWith(const QString& button, const QString& file)
    {
        pMainWindow->statusBar()->clearMessage();
        const FileDialogAnswer answer(file);
        const auto buttons = widget.findChildren<QPushButton*>();
        press(*std::find_if(buttons.begin(), buttons.end(), [&](auto* pButton) { return pButton->text() == button; }));
        return answer.seen + "|" + answer.suggested;
    }

    Json::Value dumpRead() const { return t_common::JsonApp::fromString(fileRead(dumpPath).toStdString()); }

    IspRegisterWidget& widget = dynamic_cast<IspRegisterWidget&>(page("ISP Register"));
    QTemporaryDir directory;
    const QString path = directory.filePath("registers.xml");
    QString dumpPath = directory.filePath("dump.json");
};
} // namespace

TEST_F(IspRegisterPageTest, TableShowsTheChosenModule)
{
    emit pMainWindow->refresh();
    EXPECT_EQ(board->requestCount(), 0u) << "only the user's actions talk to the board";
    EXPECT_FALSE(widget.pPushButtonSet->isEnabled());
    choose("Auto Exposure");
    EXPECT_EQ(widget.pPushButtonPopup->text(), "Auto Exposure");
    ASSERT_EQ(widget.pStandardItemModel->rowCount(), 5);
    // With the colour of the cells, and how many of the fields and buttons are free.
    const auto line = [&](int row)
    {
        QString text;
        for (int column = 0; column < RegisterTable::Sum; ++column)
        {
            EXPECT_FALSE(widget.pStandardItemModel->item(row, column)->isEditable());
            text += cell(row, RegisterTable::Column(column)) + "|";
        }
        select(row);
        const auto free = widget.pLineEditHexValue->isEnabled() + widget.pLineEditDecValue->isEnabled() +
                          widget.pLineEditBinValue->isEnabled() + widget.pPushButtonSet->isEnabled();
        return text + widget.pStandardItemModel->item(row)->foreground().color().name() + "|" + QString::number(free);
    };
    EXPECT_EQ(line(0), "R/W|0x00000600|exp_ctrl|0x00000001|0x00000001|Start and mode of the measurement|#00009b|4");
    EXPECT_EQ(line(4), "W|0x00000610|exp_irq_clear|0x00000000|0x00000000|Clears the measurement interrupt|#009b00|4");
    EXPECT_EQ(line(3),
              "R|0x0000060c|exp_mean_center|0x00000048|0x00000048|Mean luminance of the centre block|#9b0000|0");
    EXPECT_EQ(widget.pLineEditAddress->text() + " " + fields(), "0x0000060c 00000048 72 1001000");
}

TEST_F(IspRegisterPageTest, FailedReadsKeepTheMenuAndEmptyTheTable)
{
    choose(module);
    select(readWrite);
    board->faultSet({Fault::Error, "Reg::statusGet"_id, 1, 0, "No list"});
    auto* pMenu = menuOpen();
    EXPECT_EQ(status(), "Server: No list");
    ASSERT_EQ(pMenu->actions().size(), 4);

    board->faultSet({Fault::Error, "Reg::statusGet"_id, 1, 0, "No module"});
    pMenu->actions()[1]->trigger();
    EXPECT_EQ(status(), "Server: No module");
    EXPECT_EQ(widget.pStandardItemModel->rowCount(), 0);
    EXPECT_EQ(widget.pPushButtonPopup->text(), "Auto Exposure");
    // The register of the other module is no longer there to be written.
    typeHalf(widget.pLineEditHexValue, "7");
    board->requestsClear();
    QMetaObject::invokeMethod(&widget, "pushButtonSet_Clicked");
    pressWith("Read", {});
    EXPECT_EQ(board->requestCount(), 0u);

    const std::pair<const char*, const char*> cases[] = {{"registers", R"([{"address": []}])"},
                                                         {"registers", R"([{"permission": "x"}])"},
                                                         {"name", R"([{"description": {}}])"},
                                                         {"name", R"([{"module.id": 1e30}])"}};
    for (const auto& [key, pText] : cases)
    {
        choose(module);
        EXPECT_EQ(widget.pStandardItemModel->rowCount(), 5);
        pMainWindow->statusBar()->clearMessage();
        board->answerSet("Reg::statusGet"_id, key, json(pText));
        const bool isList = key == std::string("name");
        isList ? void(menuOpen()) : choose(module);
        board->answersClear();
        EXPECT_TRUE(status().startsWith("Error in the answer")) << pText << str(status());
        EXPECT_EQ(widget.pStandardItemModel->rowCount(), isList ? 5 : 0) << pText;
        EXPECT_EQ(pMenu->actions().size(), 4) << pText;
    }
}

TEST_F(IspRegisterPageTest, TheThreeFieldsFollowEachOther)
{
    choose(module);
    const std::tuple<QLineEdit*, const char*, const char*, const char*, const char*> cases[] = {
        {widget.pLineEditHexValue, "1f", "0000001F 31 11111", "0000001F", ""},
        {widget.pLineEditHexValue, "g", "00000081 129 10000001", "00000081", "HexText input error"},
        {widget.pLineEditDecValue, "31", "1f 31 11111", "1f", ""},
        {widget.pLineEditDecValue, "x", "81 129 10000001", "81", "DecText input error"},
        {widget.pLineEditBinValue, "0110", "0x6 6 0110", "6", ""},
        {widget.pLineEditBinValue, "2", "0x81 129 10000001", "81", "BinText input error"},
        {widget.pLineEditDecValue, "4294967295", "ffffffff 4294967295 11111111111111111111111111111111", "ffffffff",
         ""},
    };
    for (const auto& [pField, typed, shown, hexEdit, text] : cases)
    {
        select(1);
        select(readWrite);
        typeHalf(pField, typed);
        EXPECT_EQ(fields(), shown) << typed;
        EXPECT_EQ(widget.lineHexEditText, hexEdit);
        EXPECT_EQ(error(), text);
    }
    // One too many. The box comes again, though told not to.
    for (int i = 0; i < 2; ++i)
    {
        typeHalf(widget.pLineEditDecValue, "4294967296");
        for (auto* pCheckBox : widget.findChildren<QCheckBox*>())
            pCheckBox->setChecked(false);
        EXPECT_EQ(error(), "DecText input error");
    }
    // A digit in the middle leaves the cursor behind it.
    select(1);
    select(readWrite);
    widget.pLineEditHexValue->setCursorPosition(6);
    QTest::keyClicks(widget.pLineEditHexValue, "ab");
    EXPECT_EQ(widget.pLineEditHexValue->text(), "0000AB81");
    EXPECT_EQ(board->count("Reg::configSet"_id), 0u);
}

TEST_F(IspRegisterPageTest, WrittenRegistersAreReadBack)
{
    choose(module);
    select(readWrite);
    board->requestsClear();
    press(widget.pPushButtonSet);
    EXPECT_EQ(board->requestCount(), 0u) << "nothing has changed";

    // The board keeps some of the bits only.
    board->answerSet("Reg::configGet"_id, "value", 0x1e);
    typeHalf(widget.pLineEditHexValue, "1f");
    press(widget.pPushButtonSet);
    EXPECT_EQ(last("Reg::configSet"_id), "400 1f");
    EXPECT_EQ(last("Reg::configGet"_id), "400 0");
    EXPECT_EQ(fields(), "0000001E 30 11110");
    EXPECT_EQ(status(), "Write 0x400 = 0x1F OK");
    board->answersClear();
    pressWith("Read", {});
    EXPECT_EQ(status(), "Read 0x400 = 0x1F OK");
    EXPECT_EQ(fields(), "0000001F 31 11111");
    EXPECT_EQ(cell(readWrite, RegisterTable::Value), "0x0000001f");
}

TEST_F(IspRegisterPageTest, WrittenRegistersAreLogged)
{
    choose(module);
    const auto write = [&](const QString& value)
    {
        typeHalf(widget.pLineEditDecValue, value);
        press(widget.pPushButtonSet);
    };
    select(readWrite);
    write("31");
    choose("Auto Exposure");
    select(4);
    write("3");
    EXPECT_EQ(status(), "Written, but not read back: Server: Register 0x00000610 is write only");
    // The log's own text may be marked.
    widget.pTextEditRegisterValue->selectAll();
    write("0");
    EXPECT_EQ(last("Reg::configSet"_id), "610 0") << "it differs from what was written last";
    EXPECT_EQ(widget.pTextEditRegisterValue->toPlainText(), "Set Module (Main Control ): \tset *0x00000400 = 0x1f\n"
                                                            "Set Module (Auto Exposure ): \tset *0x00000610 = 0x3\n"
                                                            "Set Module (Auto Exposure ): \tset *0x00000610 = 0x0\n");
    const auto logs = QDir().entryList({"*.xml"});
    ASSERT_EQ(logs.size(), 1);
    EXPECT_TRUE(QDateTime::fromString(logs[0], "yyyyMMdd-hhmmss'.xml'").isValid()) << str(logs[0]);
    const auto log = fileRead(logs[0]);
    EXPECT_EQ(registersOf(log), "OPTRIX_1|Main_Control|isp_ctrl|[1 1]|uint32_t|0x00000400|0x00000081|0x1f\n"
                                "OPTRIX_1|Auto_Exposure|exp_irq_clear|[1 1]|uint32_t|0x00000610|0x00000000|0x3\n"
                                "OPTRIX_1|Auto_Exposure|exp_irq_clear|[1 1]|uint32_t|0x00000610|0x00000003|0x0\n");
    EXPECT_EQ(log.count("<Auto_Exposure>"), 1);

    // Not written, not logged.
    board->faultSet({Fault::Error, "Reg::configSet"_id, 1, 0, "Locked"});
    write("4");
    EXPECT_EQ(status(), "Server: Locked");
    EXPECT_FALSE(widget.pTextEditRegisterValue->toPlainText().contains("0x4\n"));
    // Written, but there is no place for the log.
    QFile::remove(logs[0]);
    ASSERT_TRUE(QDir().mkdir(logs[0]));
    press(widget.pPushButtonSet);
    EXPECT_TRUE(widget.pTextEditRegisterValue->toPlainText().endsWith("= 0x4\n"));
    EXPECT_TRUE(status().startsWith("Written, but not logged: ") && status().contains("; not read back: "))
        << str(status());
    QDir().rmdir(logs[0]);
}

TEST_F(IspRegisterPageTest, DumpHoldsEveryModule)
{
    choose(module);
    board->requestsClear();
    EXPECT_EQ(pressWith("Dump", {}),
              "Select Dump File|" + QDir::currentPath() + "|JSON Files (*.json)|Main_Control_register_dump.json");
    EXPECT_EQ(board->requestCount(), 0u) << "cancelled";
    EXPECT_TRUE(pressWith("Dump All", dumpPath).endsWith("|OPTRIX_register_dump.json"));
    EXPECT_EQ(status(), "Registers saved to " + dumpPath);
    const auto jDump = dumpRead();
    ASSERT_EQ(jDump.size(), 4u);
    EXPECT_EQ(jDump[1]["module.id"].asInt(), 1);
    EXPECT_EQ(jDump[1]["map"][3]["name"].asString(), "exp_mean_center");
    EXPECT_EQ(fileRead(dumpPath).toStdString(), t_common::JsonApp::toString(jDump, "  "));

    EXPECT_TRUE(hasWaitCursor("Reg::statusGet"_id, [&] { widget.dump(dumpPath, 1); }));
    EXPECT_EQ(dumpRead().size(), 2u);
}

TEST_F(IspRegisterPageTest, DumpOfAFailingBoard)
{
    board->answerSet("Reg::statusGet"_id, "name", json(R"([{"description": "First", "module.id": 0},
        {"description": "Missing", "module.id": 77}, {"description": "Last", "module.id": 1}])"));
    widget.dump(dumpPath, -1);
    EXPECT_EQ(status(), "Server: There is no register module 77");
    const auto jDump = dumpRead();
    ASSERT_EQ(jDump.size(), 3u);
    EXPECT_TRUE(jDump[1].isMember("map") && jDump[1]["map"].isNull());
    EXPECT_EQ(jDump[1]["description"].asString(), "Missing");
    EXPECT_EQ(jDump[2]["map"].size(), 5u) << "the others are there";

    // No list, no file: the one that is there stays.
    board->faultSet({Fault::Error, "Reg::statusGet"_id, 1, 0, "No list"});
    EXPECT_THROW(widget.dump(dumpPath, -1), std::exception);
    EXPECT_EQ(dumpRead(), jDump);
    const auto nowhere = directory.filePath("no/dump.json");
    pressWith("Dump", nowhere);
    EXPECT_TRUE(status().startsWith("Saving of \"" + nowhere + "\" failed")) << str(status());

    // A board of a hundred modules that falls silent after its list costs two time limits, not a hundred.
    auto jModules = json("[]");
    for (int i = 0; i < 100; ++i)
        jModules.append(jDump[0]);
    board->answerSet("Reg::statusGet"_id, "name", jModules);
    QElapsedTimer clock;
    clock.start();
    during(
        "Reg::statusGet"_id, [&] { widget.dump(dumpPath, -1); }, [this] { board->faultSet({Fault::Silence}); });
    EXPECT_LT(clock.elapsed(), 2 * 2000 + 1500);
    EXPECT_EQ(dumpRead().size(), 100u);
}

TEST_F(IspRegisterPageTest, RegisterFileGoesOutAndComesBack)
{
    // A new file gets the values of a reset.
    choose("Auto Exposure");
    fileWrite(path, "<OPTRIX_1><Auto_Exposure><a>0x5</a><a>0x6</a></Auto_Exposure>"
                    "<Auto_Exposure><a>0x9</a></Auto_Exposure></OPTRIX_1>");
    pressWith("Load", path);
    EXPECT_EQ(cell(0, RegisterTable::Value), "0x9") << "the last counts";
    EXPECT_EQ(cell(1, RegisterTable::Value), "0x6");
    EXPECT_EQ(cell(2, RegisterTable::Value), "0x00000000") << "fewer registers than rows";
    QFile::remove(path);
    EXPECT_TRUE(pressWith("Save", path).startsWith("Save XML File|" + QDir::currentPath() + "|XML Files (*.xml)"));
    const auto created = fileRead(path);
    EXPECT_TRUE(
        created.startsWith("<?xml version=\"1.0\"?>\n<!DOCTYPE norvik_registers_v1>\n<OPTRIX_1>\n    <Auto_Ex"));
    EXPECT_TRUE(
        registersOf(created).startsWith("OPTRIX_1|Auto_Exposure|exp_ctrl|[1 1]|uint32_t|0x00000600||0x00000001\n"));
    EXPECT_EQ(created.count("size="), 5);

    // The values come back by position, and the selected register's fields follow.
    fileWrite(path, QByteArray(created).replace(">0x00000001<", ">0x00000abc<").replace("exp_ctrl", "other"));
    select(0);
    EXPECT_TRUE(pressWith("Load", path).startsWith("Open XML File|" + QDir::currentPath() + "|XML Files (*.xml)"));
    EXPECT_EQ(cell(0, RegisterTable::Value), "0x00000abc");
    EXPECT_EQ(fields(), "00000ABC 2748 101010111100");
    EXPECT_EQ(board->count("Reg::configSet"_id), 0u);

    // A second module joins the file with its defaults, the first gets its present values; all else stays.
    fileWrite(path, QByteArray(created).replace("</OPTRIX_1>", "<!-- mine --></OPTRIX_1>"));
    pressWith("Save", path);
    EXPECT_TRUE(fileRead(path).contains(">0x00000abc</exp_ctrl>"));
    choose(module);
    pressWith("Save", path);
    const auto both = fileRead(path);
    EXPECT_TRUE(both.startsWith("<?xml version='1.0'?>")) << str(both);
    EXPECT_TRUE(both.contains("<!-- mine -->") && both.contains("<!DOCTYPE norvik_registers_v1>")) << str(both);
    EXPECT_GT(both.indexOf("<Main_Control>"), both.indexOf("</Auto_Exposure>"));
    EXPECT_EQ(both.count("size="), 10);

    // More registers than rows; what is typed and not yet written stays.
    select(0);
    typeHalf(widget.pLineEditDecValue, "9");
    fileWrite(path, "<OPTRIX_1><Main_Control>" + QByteArray("<a>0x8</a>").repeated(9) + "</Main_Control></OPTRIX_1>");
    pressWith("Load", path);
    EXPECT_EQ(cell(4, RegisterTable::Value), "0x8");
    EXPECT_EQ(widget.pStandardItemModel->rowCount(), 5);
    EXPECT_EQ(fields(), "9 9 1001");
}

TEST_F(IspRegisterPageTest, NamesThatDifferInPunctuationStayApartInAFile)
{
    board->answerSet("Reg::statusGet"_id, "name",
                     json(R"([{"module.id": 0, "description": "A/B"}, {"module.id": 1, "description": "A B"}])"));
    fileWrite(path, "<OPTRIX_1><A_B><a>0x5</a></A_B></OPTRIX_1>");
    for (const auto* pValue : {"0x1", "0x2"})
    {
        const std::string name = pValue == std::string("0x1") ? "A/B" : "A B";
        board->answerSet("Reg::statusGet"_id, "registers",
                         json(R"([{"address": "0x4", "permission": 1, "name": "a", "value.default": ")" +
                              std::string(pValue) + "\"}]"));
        choose(QString::fromStdString(name));
        pressWith("Load", path);
        EXPECT_EQ(cell(0, RegisterTable::Value), "0x5") << "an older file";
        pressWith("Save", path);
        pressWith("Load", path);
        EXPECT_EQ(cell(0, RegisterTable::Value), pValue);
    }
    EXPECT_EQ(fileRead(path).count("size="), 2);
}

TEST_F(IspRegisterPageTest, RegisterFilesThatDoNotFitChangeNothing)
{
    pressWith("Save", path);
    EXPECT_EQ(status(), "No ISP module is selected");
    EXPECT_FALSE(QFile::exists(path));
    const QByteArray foreign = "<OPTRIX_1><Other><a>0x7</a></Other></OPTRIX_1>";
    fileWrite(path, foreign);
    pressWith("Save", path);
    EXPECT_EQ(fileRead(path), foreign);
    choose(module);
    pressWith("Load", path);
    EXPECT_EQ(error(), "The xml file you loaded doesn't have the Main_Control information");

    fileWrite(path, "<OPTRIX_1>");
    for (const auto* button : {"Load", "Save"})
    {
        pressWith(button, path);
        EXPECT_TRUE(status().contains("registers.xml")) << str(status());
        EXPECT_EQ(fileRead(path), "<OPTRIX_1>");
        pressWith(button, {});
        EXPECT_EQ(status(), "") << "cancelled";
    }
    EXPECT_EQ(cell(0, RegisterTable::Value), "0x00000081");
}

TEST_F(IspRegisterPageTest, TextsOfTheBoardArePlainAndBounded)
{
    board->answerSet("Reg::statusGet"_id, "name",
                     json(R"([{"module.id": 0, "description": "A & B\n\u001b[31m)" + std::string(5000, 'x') + "\"}]"));
    board->answerSet("Reg::statusGet"_id, "registers",
                     json(R"([{"address": "behind the door", "permission": 1, "value": "<b>\u0001</b>", "name": ")" +
                          std::string(1 << 20, 'n') + "\"}]"));
    auto* pAction = menuOpen()->actions()[0];
    EXPECT_TRUE(pAction->text().startsWith("A && B ?[31mxx"));
    EXPECT_LT(pAction->text().size(), 300);
    pAction->trigger();
    EXPECT_LT(cell(0, RegisterTable::Name).size(), 2000);
    EXPECT_EQ(cell(0, RegisterTable::Value), "<b>?</b>");
    select(0);
    EXPECT_EQ(fields(), "00000000 0 0");
    board->requestsClear();
    pressWith("Read", {});
    EXPECT_EQ(status(), "The address \"behind the door\" is no hexadecimal number");
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST(RegisterDocumentTest, NamesBecomeElementNames)
{
    const char* cases[][2] = {{"Main Control", "Main_Control"},
                              {"3D <Filter>&\"", "_3D__Filter___"},
                              {"", "_"},
                              {"-a.b-1", "_-a.b-1"},
                              {"\u66dd\u5149", "_u66DDu5149"}};
    for (const auto& [name, expected] : cases)
        EXPECT_EQ(register_document::nameMake(QString::fromUtf8(name)), expected);
    const QStringList modules = {"A/B", "A B", "A_B", "1.A/B", "A-B"};
    QStringList tags;
    for (const auto& name : modules)
        tags.append(register_document::tagMake(name, modules));
    EXPECT_EQ(tags, QStringList({"Au002FB", "Au0020B", "Au005FB", "_1.A_B", "A-B"}));
}
