#include "tests/support/board-fixture.h"
#include "tests/support/files.h"
#include "tests/support/full-disk.h"
#include "tests/support/modals.h"
#include "tuning-client/source/file/register-document.h"
#include "tuning-client/source/module/isp-register-widget.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-common/source/json-app.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QErrorMessage>
#include <QGroupBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTreeView>

#include <thread>

using board::Fault;

namespace
{
enum Command
{
    SensorGet = 80005,
    SensorSet = 80006,
    RegGet = 4002701,
    RegSet = 4002702,
    RegStatus = 4002703
};

constexpr auto module = "Main Control";
constexpr int readWrite = 0; ///< rows of "Main Control"

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

void press(QPushButton* pButton) { QTest::mouseClick(pButton, Qt::LeftButton); }

class RegisterPagesTest : public BoardTest
{
protected:
    RegisterPagesTest()
    {
        for (const auto& name : QDir().entryList({"20*.xml"}))
            QFile::remove(name);
        chipWrite("Registers", {"Register", "ISP Register"});
        config.setting.chipName = "Registers";
    }

    RegisterWidget& registers() { return dynamic_cast<RegisterWidget&>(page("Register")); }

    IspRegisterWidget& isp()
    {
        if (!pPage)
            pPage = &dynamic_cast<IspRegisterWidget&>(page("ISP Register"));
        return *pPage;
    }

    void choose(const QString& name)
    {
        auto* pMenu = isp().pPushButtonPopup->menu();
        emit pMenu->aboutToShow();
        for (auto* pAction : pMenu->actions())
        {
            if (pAction->text() == name)
                return pAction->trigger();
        }
        FAIL() << "no module " << str(name);
    }

    void select(int row) { isp().pTreeView->setCurrentIndex(isp().pStandardItemModel->index(row, 0)); }

    QString cell(int row, IspRegisterWidget::Column column)
    {
        return isp().pStandardItemModel->item(row, column)->text();
    }

    void type(QLineEdit* pField, const QString& text)
    {
        pField->selectAll();
        QTest::keyClicks(pField, text);
    }

    QString fields()
    {
        return isp().pLineEditHexValue->text() + " " + isp().pLineEditDecValue->text() + " " +
               isp().pLineEditBinValue->text();
    }

    /// The text of the box that stands, which is closed.
    QString error()
    {
        QString text;
        for (auto* pBox : isp().findChildren<QErrorMessage*>())
        {
            if (pBox->isVisible())
                text += pBox->findChild<QTextEdit*>()->toPlainText();
            pBox->close();
        }
        return text;
    }

    /// Presses the button and gives its dialog that file; a null name cancels. What the dialog was told comes back.
    QString pressWith(const QString& button, const QString& path)
    {
        const FileDialogAnswer answer(path);
        for (auto* pButton : isp().findChildren<QPushButton*>())
        {
            if (pButton->text() == button)
                press(pButton);
        }
        return answer.seen + "|" + answer.suggested;
    }

    Json::Value last(int id) const
    {
        const auto requests = board->requests();
        for (auto request = requests.rbegin(); request != requests.rend(); ++request)
        {
            if (request->id == id)
                return request->query;
        }
        return {};
    }

    IspRegisterWidget* pPage = nullptr;
    QTemporaryDir directory;
};
} // namespace

TEST(HexSpinBoxTest, TakesWhatIsTyped)
{
    const struct
    {
        bool isOnly16Bits;
        const char* pTyped;
        const char* pShown;
        unsigned value;
    } cases[] = {
        {false, "ffffffff", "0xFFFFFFFF", 4294967295u},
        {false, "0x1a", "0x1A", 26},
        {false, "100000000", "0x10000000", 0x10000000},
        {false, "1g-z+2 ", "0x12", 0x12},
        {false, "0X1a", "0x1A", 26},
        {true, "ffff", "0xFFFF", 0xFFFF},
        {true, "10000", "0x1000", 0x1000},
        // Emptied: what stood there before.
        {false, "", "0x5", 5},
    };
    for (const auto& c : cases)
    {
        HexSpinBox box(c.isOnly16Bits);
        box.setHexValue(5);
        box.show();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        EXPECT_EQ(box.text(), "0x") << "can be cleared and typed on";
        QTest::keyClicks(&box, c.pTyped);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_EQ(box.text(), c.pShown) << c.pTyped;
        EXPECT_EQ(box.hexValue(), c.value) << c.pTyped;
    }
    HexSpinBox box(false);
    box.setHexValue(4294967295u);
    EXPECT_EQ(box.value(), -1);
    EXPECT_EQ(box.text(), "0xFFFFFFFF");
}

TEST(HexSpinBoxTest, JudgesPastedText)
{
    class Open : public HexSpinBox
    {
    public:
        using HexSpinBox::HexSpinBox;
        using HexSpinBox::validate;
    };
    const struct
    {
        const char* pInput;
        int pos;
        QValidator::State state;
        const char* pInputAfter;
        int posAfter;
    } cases[] = {
        {"0x  ab ", 7, QValidator::Acceptable, "0xAB", 4}, {"0X12", 4, QValidator::Acceptable, "0x0X12", 4},
        {"   ", 0, QValidator::Intermediate, "   ", 0},    {"0x", 2, QValidator::Intermediate, "0x", 2},
        {"0x10000", 7, QValidator::Invalid, "0x10000", 7}, {"0x-1", 4, QValidator::Invalid, "0x-1", 4},
    };
    const Open box(true);
    for (const auto& c : cases)
    {
        QString input = c.pInput;
        int pos = c.pos;
        EXPECT_EQ(box.validate(input, pos), c.state) << c.pInput;
        EXPECT_EQ(input, c.pInputAfter);
        EXPECT_EQ(pos, c.posAfter) << c.pInput;
    }
}

TEST_F(RegisterPagesTest, SingleRegistersAreReadAndWritten)
{
    auto& widget = registers();
    EXPECT_LT(widget.pGroupBoxSensor->x(), widget.pGroupBoxIsp->x());
    EXPECT_EQ(board->requestCount(), 0u) << "only the buttons talk to the board";
    const struct
    {
        HexSpinBox* pAddress;
        HexSpinBox* pValue;
        QPushButton* pRead;
        QPushButton* pWrite;
        int get, set;
    } groups[] = {{widget.pHexSpinBoxSensorAddress, widget.pHexSpinBoxSensorValue, widget.pPushButtonSensorRead,
                   widget.pPushButtonSensorWrite, SensorGet, SensorSet},
                  {widget.pHexSpinBoxIspAddress, widget.pHexSpinBoxIspValue, widget.pPushButtonIspRead,
                   widget.pPushButtonIspWrite, RegGet, RegSet}};
    for (const auto& group : groups)
    {
        board->requestsClear();
        group.pAddress->setHexValue(0xFFFF0400);
        group.pValue->setHexValue(0x9);
        press(group.pWrite);
        EXPECT_EQ(status(), "Write 0xFFFF0400 = 0x09 OK");
        EXPECT_EQ(last(group.set)["address"].asUInt(), 0xFFFF0400);
        EXPECT_EQ(last(group.set)["value"].asUInt(), 9u);
        group.pValue->setHexValue(1);
        press(group.pRead);
        EXPECT_EQ(group.pValue->hexValue(), 9u);
        EXPECT_EQ(status(), "Read 0xFFFF0400 = 0x09 OK");
        EXPECT_EQ(board->requestCount(), 2u);

        board->faultSet({Fault::Error, group.get, -1, 0, "Locked"});
        press(group.pRead);
        EXPECT_EQ(status(), "Server: Locked");
        board->faultsClear();

        // An emptied field must not send what stood there before.
        board->requestsClear();
        group.pAddress->selectAll();
        QTest::keyClick(group.pAddress, Qt::Key_Delete);
        for (auto* pButton : {group.pRead, group.pWrite})
        {
            pButton->animateClick(0);
            QTest::qWait(1);
            EXPECT_TRUE(status().endsWith("no hexadecimal number")) << str(status());
        }
        EXPECT_EQ(board->requestCount(), 0u);
    }
}

TEST_F(RegisterPagesTest, TableShowsTheChosenModule)
{
    auto& widget = isp();
    EXPECT_EQ(board->requestCount(), 0u);
    EXPECT_FALSE(widget.pPushButtonSet->isEnabled());
    choose("Auto Exposure");
    EXPECT_EQ(widget.pPushButtonPopup->text(), "Auto Exposure");
    EXPECT_EQ(last(RegStatus)["module.id"].asInt(), 1);
    ASSERT_EQ(widget.pStandardItemModel->rowCount(), 5);
    QStringList header;
    for (int column = 0; column < widget.pStandardItemModel->columnCount(); ++column)
        header.append(widget.pStandardItemModel->horizontalHeaderItem(column)->text());
    EXPECT_EQ(header.join("|"), "Permission|Address|Name|Default|Value|Description");

    const struct
    {
        int row;
        const char* pTexts;
        QColor color;
        bool isWritable;
    } rows[] = {
        {0, "R/W|0x00000600|exp_ctrl|0x00000001|0x00000001|Start and mode of the measurement", {0, 0, 155}, true},
        {3,
         "R|0x0000060c|exp_mean_center|0x00000048|0x00000048|Mean luminance of the centre block",
         {155, 0, 0},
         false},
        {4, "W|0x00000610|exp_irq_clear|0x00000000|0x00000000|Clears the measurement interrupt", {0, 155, 0}, true}};
    for (const auto& row : rows)
    {
        QStringList texts;
        for (int column = 0; column < IspRegisterWidget::Sum; ++column)
        {
            const auto* pItem = widget.pStandardItemModel->item(row.row, column);
            EXPECT_EQ(pItem->foreground().color(), row.color);
            EXPECT_FALSE(pItem->isEditable());
            texts.append(pItem->text());
        }
        EXPECT_EQ(texts.join("|"), row.pTexts);
        select(row.row);
        for (QWidget* pWidget :
             {static_cast<QWidget*>(widget.pLineEditHexValue), static_cast<QWidget*>(widget.pLineEditDecValue),
              static_cast<QWidget*>(widget.pLineEditBinValue), static_cast<QWidget*>(widget.pPushButtonSet)})
            EXPECT_EQ(pWidget->isEnabled(), row.isWritable) << row.pTexts;
    }
    select(3);
    EXPECT_EQ(widget.pLineEditAddress->text(), "0x0000060c");
    EXPECT_EQ(fields(), "00000048 72 1001000");
}

TEST_F(RegisterPagesTest, FailedReadsKeepTheMenuAndEmptyTheTable)
{
    choose(module);
    select(readWrite);
    board->faultSet({Fault::Error, RegStatus, 1, 0, "No list"});
    auto* pMenu = isp().pPushButtonPopup->menu();
    emit pMenu->aboutToShow();
    EXPECT_EQ(status(), "Server: No list");
    ASSERT_EQ(pMenu->actions().size(), 4);

    board->faultSet({Fault::Error, RegStatus, 1, 0, "No module"});
    pMenu->actions()[1]->trigger();
    EXPECT_EQ(status(), "Server: No module");
    EXPECT_EQ(isp().pStandardItemModel->rowCount(), 0);
    EXPECT_EQ(isp().pPushButtonPopup->text(), "Auto Exposure");
    // The register of the other module is no longer there to be written.
    type(isp().pLineEditHexValue, "7");
    board->requestsClear();
    press(isp().pPushButtonSet);
    QMetaObject::invokeMethod(&isp(), "pushButtonSet_Clicked");
    pressWith("Read", {});
    EXPECT_EQ(board->requestCount(), 0u);

    const auto jsonMake = [](const char* pText) { return t_common::JsonApp::fromString(pText)["a"]; };
    for (const auto* pText :
         {"{\"a\":[3]}", "{\"a\":[{\"address\":[]}]}", "{\"a\":[{\"permission\":\"x\"}]}", "{\"a\":7}"})
    {
        choose(module);
        EXPECT_EQ(isp().pStandardItemModel->rowCount(), 5);
        board->answerSet(RegStatus, "registers", jsonMake(pText));
        choose(module);
        board->answersClear();
        EXPECT_TRUE(status().startsWith("Error in the answer")) << pText << str(status());
        EXPECT_EQ(isp().pStandardItemModel->rowCount(), 0) << pText;
    }
    for (const auto* pText :
         {"{\"a\":[3]}", "{\"a\":[{\"description\":{}}]}", "{\"a\":[{\"module.id\":1e30}]}", "{\"a\":7}"})
    {
        pMainWindow->statusBar()->clearMessage();
        board->answerSet(RegStatus, "name", jsonMake(pText));
        emit pMenu->aboutToShow();
        EXPECT_TRUE(status().startsWith("Error in the answer")) << pText << str(status());
        EXPECT_EQ(pMenu->actions().size(), 4) << pText;
    }
}

TEST_F(RegisterPagesTest, TheThreeFieldsFollowEachOther)
{
    choose(module);
    auto& widget = isp();
    const struct
    {
        QLineEdit* pField;
        const char* pTyped;
        const char* pFields;
        const char* pHexEdit;
        const char* pError;
    } cases[] = {
        {widget.pLineEditHexValue, "1f", "0000001F 31 11111", "0000001F", ""},
        {widget.pLineEditHexValue, "g", "00000081 129 10000001", "00000081", "HexText input error"},
        {widget.pLineEditDecValue, "31", "1f 31 11111", "1f", ""},
        {widget.pLineEditDecValue, "x", "81 129 10000001", "81", "DecText input error"},
        {widget.pLineEditBinValue, "0110", "0x6 6 0110", "6", ""},
        {widget.pLineEditBinValue, "2", "0x81 129 10000001", "81", "BinText input error"},
        {widget.pLineEditDecValue, "4294967295", "ffffffff 4294967295 11111111111111111111111111111111", "ffffffff",
         ""},
    };
    for (const auto& c : cases)
    {
        select(1);
        select(readWrite);
        type(c.pField, c.pTyped);
        EXPECT_EQ(fields(), c.pFields) << c.pTyped;
        EXPECT_EQ(widget.lineHexEditText, c.pHexEdit);
        EXPECT_EQ(error(), c.pError);
    }
    // One too many. The box comes again, though told not to.
    for (auto* pBox : widget.findChildren<QCheckBox*>())
        pBox->setChecked(false);
    type(widget.pLineEditDecValue, "4294967296");
    EXPECT_EQ(error(), "DecText input error");
    // A digit in the middle leaves the cursor behind it.
    select(1);
    select(readWrite);
    widget.pLineEditHexValue->setCursorPosition(6);
    QTest::keyClicks(widget.pLineEditHexValue, "ab");
    EXPECT_EQ(widget.pLineEditHexValue->text(), "0000AB81");
    EXPECT_EQ(board->count(RegSet), 0u);
}

TEST_F(RegisterPagesTest, WrittenRegistersAreReadBackAndLogged)
{
    choose(module);
    auto& widget = isp();
    select(readWrite);
    board->requestsClear();
    press(widget.pPushButtonSet);
    EXPECT_EQ(board->requestCount(), 0u) << "nothing has changed";

    // The board keeps some of the bits only.
    board->answerSet(RegGet, "value", 0x1e);
    type(widget.pLineEditHexValue, "1f");
    press(widget.pPushButtonSet);
    EXPECT_EQ(last(RegSet)["address"].asUInt(), 0x400u);
    EXPECT_EQ(last(RegSet)["value"].asUInt(), 0x1fu);
    EXPECT_EQ(last(RegGet)["address"].asUInt(), 0x400u);
    EXPECT_EQ(cell(readWrite, IspRegisterWidget::Value), "0x0000001e");
    EXPECT_EQ(fields(), "0000001E 30 11110");
    EXPECT_EQ(status(), "Write 0x400 = 0x1F OK");
    board->answersClear();
    pressWith("Read", {});
    EXPECT_EQ(status(), "Read 0x400 = 0x1F OK");
    EXPECT_EQ(fields(), "0000001F 31 11111");
    EXPECT_EQ(cell(readWrite, IspRegisterWidget::Value), "0x0000001f");

    choose("Auto Exposure");
    select(4);
    type(widget.pLineEditDecValue, "3");
    press(widget.pPushButtonSet);
    EXPECT_EQ(status(), "Written, but not read back: Server: Register 0x00000610 is write only");
    // The log's own text may be marked.
    widget.pTextEditRegisterValue->selectAll();
    type(widget.pLineEditHexValue, "0");
    press(widget.pPushButtonSet);
    EXPECT_EQ(last(RegSet)["value"].asUInt(), 0u) << "it differs from what was written last";
    EXPECT_EQ(widget.pTextEditRegisterValue->toPlainText(),
              "Set Module (Main Control ): \tset *0x00000400 = 0x0000001F\n"
              "Set Module (Auto Exposure ): \tset *0x00000610 = 0x3\n"
              "Set Module (Auto Exposure ): \tset *0x00000610 = 0x00000000\n");

    const auto logs = QDir().entryList({"*.xml"});
    ASSERT_EQ(logs.size(), 1);
    EXPECT_TRUE(QDateTime::fromString(logs[0], "yyyyMMdd-hhmmss'.xml'").isValid()) << str(logs[0]);
    EXPECT_EQ(registersOf(fileRead(logs[0])),
              "OPTRIX_1|Main_Control|isp_ctrl|[1 1]|uint32_t|0x00000400|0x00000081|0x0000001F\n"
              "OPTRIX_1|Auto_Exposure|exp_irq_clear|[1 1]|uint32_t|0x00000610|0x00000000|0x3\n"
              "OPTRIX_1|Auto_Exposure|exp_irq_clear|[1 1]|uint32_t|0x00000610|0x00000003|0x00000000\n");
    EXPECT_EQ(fileRead(logs[0]).count("<Auto_Exposure>"), 1);

    // Not written, not logged.
    board->faultSet({Fault::Error, RegSet, 1, 0, "Locked"});
    type(widget.pLineEditDecValue, "4");
    press(widget.pPushButtonSet);
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

TEST_F(RegisterPagesTest, DumpHoldsEveryModule)
{
    const auto path = directory.filePath("dump.json");
    choose(module);
    board->requestsClear();
    EXPECT_EQ(pressWith("Dump", {}),
              "Select Dump File|" + QDir::currentPath() + "|JSON Files (*.json)|Main_Control_register_dump.json");
    EXPECT_EQ(board->requestCount(), 0u) << "cancelled";
    pressWith("Dump", path);
    EXPECT_EQ(status(), "Registers saved to " + path);
    const auto whole = fileRead(path);
    QFile::remove(path);
    EXPECT_TRUE(pressWith("Dump All", path).endsWith("|OPTRIX_register_dump.json"));
    EXPECT_EQ(fileRead(path), whole);
    const auto jDump = t_common::JsonApp::fromString(whole.toStdString());
    ASSERT_EQ(jDump.size(), 4u);
    EXPECT_EQ(jDump[0]["module.id"].asInt(), 0);
    EXPECT_EQ(jDump[0]["description"].asString(), module);
    EXPECT_EQ(jDump[0]["map"].size(), 5u);
    EXPECT_EQ(jDump[1]["map"][3]["name"].asString(), "exp_mean_center");
    EXPECT_EQ(whole.toStdString(), t_common::JsonApp::toString(jDump, "  "));

    bool hasWaited = false;
    pMainWindow->clientHolder().abstract().reportSet([&](const std::string&)
                                                     { hasWaited = QApplication::overrideCursor() != nullptr; });
    QString name = path;
    isp().dump(name, 1);
    EXPECT_TRUE(hasWaited);
    EXPECT_EQ(t_common::JsonApp::fromString(fileRead(path).toStdString()).size(), 2u);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(RegisterPagesTest, DumpOfAFailingBoard)
{
    auto name = directory.filePath("dump.json");
    isp();
    Json::Value jList;
    for (int id : {0, 77, 1})
    {
        Json::Value jModule;
        jModule["description"] = "Module " + std::to_string(id);
        jModule["module.id"] = id;
        jList.append(jModule);
    }
    board->answerSet(RegStatus, "name", jList);
    isp().dump(name, -1);
    EXPECT_EQ(status(), "Server: There is no register module 77");
    auto jDump = t_common::JsonApp::fromString(fileRead(name).toStdString());
    ASSERT_EQ(jDump.size(), 3u);
    EXPECT_TRUE(jDump[1].isMember("map") && jDump[1]["map"].isNull());
    EXPECT_EQ(jDump[1]["description"].asString(), "Module 77");
    EXPECT_EQ(jDump[2]["map"].size(), 5u) << "the others are there";

    // No list, no file: the one that is there stays.
    const auto before = fileRead(name);
    board->faultSet({Fault::Error, RegStatus, -1, 0, "No list"});
    EXPECT_THROW(isp().dump(name, -1), std::exception);
    board->faultsClear();
    EXPECT_EQ(fileRead(name), before);

    QString nowhere = directory.filePath("no/dump.json");
    pressWith("Dump", nowhere);
    EXPECT_TRUE(status().startsWith("Saving of \"" + nowhere + "\" failed")) << str(status());

    // A board of a hundred modules that falls silent costs two time limits, not a hundred.
    Json::Value jModules(Json::arrayValue);
    for (int i = 0; i < 100; ++i)
    {
        jModules[i]["description"] = "Module " + std::to_string(i);
        jModules[i]["module.id"] = i;
    }
    board->answerSet(RegStatus, "name", jModules);
    board->requestsClear();
    std::thread silencer(
        [this]
        {
            while (board->requestCount() < 3)
                std::this_thread::yield();
            board->faultSet({Fault::Silence});
        });
    QElapsedTimer clock;
    clock.start();
    isp().dump(name, -1);
    silencer.join();
    EXPECT_LT(clock.elapsed(), 2 * 2000 + 1500);
    EXPECT_EQ(t_common::JsonApp::fromString(fileRead(name).toStdString()).size(), 100u);
}

TEST_F(RegisterPagesTest, RegisterFileGoesOutAndComesBack)
{
    const auto path = directory.filePath("registers.xml");
    EXPECT_TRUE(pressWith("Save", path).startsWith("Save XML File|" + QDir::currentPath() + "|XML Files (*.xml)"));
    EXPECT_EQ(status(), "No ISP module is selected");
    EXPECT_FALSE(QFile::exists(path));
    const QByteArray foreign = "<OPTRIX_1><Other><a>0x7</a></Other></OPTRIX_1>";
    fileWrite(path, foreign);
    pressWith("Save", path);
    EXPECT_EQ(status(), "No ISP module is selected");
    EXPECT_EQ(fileRead(path), foreign);
    pressWith("Load", path);
    EXPECT_EQ(error(), "The xml file you loaded doesn't have the information");

    // A new file gets the values of a reset.
    choose("Auto Exposure");
    fileWrite(
        path,
        "<OPTRIX_1><Auto_Exposure><a>0x5</a></Auto_Exposure><Auto_Exposure><a>0x9</a></Auto_Exposure></OPTRIX_1>");
    pressWith("Load", path);
    EXPECT_EQ(cell(0, IspRegisterWidget::Value), "0x9") << "the last counts";
    QFile::remove(path);
    pressWith("Save", path);
    const QByteArray created = fileRead(path);
    EXPECT_TRUE(
        created.startsWith("<?xml version=\"1.0\"?>\n<!DOCTYPE norvik_registers_v1>\n<OPTRIX_1>\n    <Auto_Ex"));
    EXPECT_TRUE(
        registersOf(created).startsWith("OPTRIX_1|Auto_Exposure|exp_ctrl|[1 1]|uint32_t|0x00000600||0x00000001\n"));
    EXPECT_EQ(created.count("size="), 5);

    // The values come back by position, and the selected register's fields follow.
    auto edited = created;
    edited.replace(">0x00000001<", ">0x00000abc<").replace("exp_ctrl", "other");
    fileWrite(path, edited);
    select(0);
    EXPECT_TRUE(pressWith("Load", path).startsWith("Open XML File|" + QDir::currentPath() + "|XML Files (*.xml)"));
    EXPECT_EQ(cell(0, IspRegisterWidget::Value), "0x00000abc");
    EXPECT_EQ(fields(), "00000ABC 2748 101010111100");
    EXPECT_EQ(cell(0, IspRegisterWidget::Default), "0x00000001");
    EXPECT_EQ(board->count(RegSet), 0u);

    // A second module joins the file with its defaults, the first gets its present values; what else stands there
    // stays.
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

    // More and fewer registers than the table has rows.
    fileWrite(path, "<OPTRIX_1><Main_Control><a>0x7</a></Main_Control></OPTRIX_1>");
    pressWith("Load", path);
    EXPECT_EQ(cell(0, IspRegisterWidget::Value), "0x7");
    EXPECT_EQ(cell(1, IspRegisterWidget::Value), "0x00000020");
    fileWrite(path, "<OPTRIX_1><Main_Control>" + QByteArray("<a>0x8</a>").repeated(9) + "</Main_Control></OPTRIX_1>");
    pressWith("Load", path);
    EXPECT_EQ(cell(4, IspRegisterWidget::Value), "0x8");
    EXPECT_EQ(isp().pStandardItemModel->rowCount(), 5);
}

TEST_F(RegisterPagesTest, RegisterFilesThatDoNotFitChangeNothing)
{
    const auto path = directory.filePath("registers.xml");
    choose(module);
    const auto value = cell(0, IspRegisterWidget::Value);

    fileWrite(path, "<OPTRIX_1><Another_Chip><a>0x7</a></Another_Chip></OPTRIX_1>");
    pressWith("Load", path);
    EXPECT_EQ(error(), "The xml file you loaded doesn't have the Main_Control information");

    const QByteArray bomb = "<!DOCTYPE a [<!ENTITY b \"bbbb\"><!ENTITY c \"&b;&b;&b;\">]><a>&c;</a>";
    for (const auto& bytes : {QByteArray(), QByteArray("<OPTRIX_1>"), QByteArray("<a>").repeated(100'000), bomb})
    {
        fileWrite(path, bytes);
        for (const auto* button : {"Load", "Save"})
        {
            pMainWindow->statusBar()->clearMessage();
            pressWith(button, path);
            EXPECT_TRUE(status().contains("registers.xml")) << str(status());
            EXPECT_EQ(fileRead(path), bytes);
        }
    }
    EXPECT_EQ(cell(0, IspRegisterWidget::Value), value);
    fileWrite(path, "<OPTRIX_1/>");
    {
        const FullDisk disk(10);
        pressWith("Save", path);
        EXPECT_TRUE(status().startsWith("Saving of ")) << str(status());
    }
    EXPECT_EQ(fileRead(path), "<OPTRIX_1/>");
    board->requestsClear();
    pressWith("Load", {});
    pressWith("Save", {});
    EXPECT_EQ(board->requestCount(), 0u);
}

TEST_F(RegisterPagesTest, TextsOfTheBoardArePlainAndBounded)
{
    Json::Value jList;
    jList[0]["description"] = std::string("A & B\n\x1b[31m") + std::string(5000, 'x');
    jList[0]["module.id"] = 0;
    Json::Value jRegisters;
    jRegisters[0]["address"] = "behind the door";
    jRegisters[0]["permission"] = 1;
    jRegisters[0]["name"] = std::string(1 << 20, 'n');
    jRegisters[0]["value"] = "<b>\x01</b>";
    board->answerSet(RegStatus, "name", jList);
    board->answerSet(RegStatus, "registers", jRegisters);
    auto* pMenu = isp().pPushButtonPopup->menu();
    emit pMenu->aboutToShow();
    ASSERT_EQ(pMenu->actions().size(), 1);
    EXPECT_TRUE(pMenu->actions()[0]->text().startsWith("A && B ?[31mxx"));
    EXPECT_LT(pMenu->actions()[0]->text().size(), 300);
    pMenu->actions()[0]->trigger();
    EXPECT_LT(cell(0, IspRegisterWidget::Name).size(), 2000);
    EXPECT_EQ(cell(0, IspRegisterWidget::Value), "<b>?</b>");
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
    {
        EXPECT_EQ(register_document::nameMake(QString::fromUtf8(name)), expected);
        QDomDocument document;
        EXPECT_TRUE(document.setContent("<" + register_document::nameMake(QString::fromUtf8(name)) + "/>"));
    }
}
