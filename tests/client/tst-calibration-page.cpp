#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/dom-tree-widget.h"
#include "tuning-client/source/module/calibration-data-widget.h"

using board::Fault;

namespace
{
constexpr auto sample = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<c>"
                        "<g n='1' m='ä &lt;b&gt;'>mixed<leaf>first &amp; &#228;</leaf>text<leaf x=''/></g>"
                        "<leaf><![CDATA[<raw>]]></leaf></c>";

QString debugText;
void debugCollect(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtDebugMsg)
        debugText += text;
}

class CalibrationPageTest : public BoardTest
{
protected:
    ~CalibrationPageTest() override
    {
        EXPECT_TRUE(QDir("temporary").isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    /// The calibration that the board is to give, under a name of its choice.
    void give(const QByteArray& xml, const QString& fileName = "calibration.xml")
    {
        fileWrite(QString::fromStdString(board->directory()) + "/" + fileName, xml);
        board->answerSet("Camera::calibrationGet"_id, "calib.file", fileName.toStdString());
    }

    /// How many elements of the top level a refresh with that calibration shows.
    int elementsOf(const QByteArray& xml, const QString& fileName = "calibration.xml")
    {
        give(xml, fileName);
        emit pMainWindow->refresh();
        return pTree->topLevelItemCount();
    }

    CalibrationDataWidget& opened()
    {
        QDir().mkpath("temporary");
        qputenv("TMPDIR", QDir().absoluteFilePath("temporary").toLocal8Bit());
        give(sample);
        return dynamic_cast<CalibrationDataWidget&>(page("Calibration Data"));
    }

    static QTreeWidgetItem* item(DomTreeWidget* pTree, const QStringList& path)
    {
        QTreeWidgetItem* pItem = nullptr;
        for (const auto& name : path)
        {
            pItem = pTree->childAt(pItem, pTree->childFind(pItem, name, 0));
            EXPECT_NE(pItem, nullptr) << str(name);
        }
        return pItem;
    }

    static void click(DomTreeWidget* pTree, QTreeWidgetItem* pItem)
    {
        pTree->scrollToItem(pItem);
        QTest::mouseClick(pTree->viewport(), Qt::LeftButton, {}, pTree->visualItemRect(pItem).center());
    }

    /// The rows from top to bottom, each with its parent's name and its text; in brackets those that are no leaves.
    QString rows() const
    {
        QStringList rows;
        for (QTreeWidgetItemIterator all(pTree); *all; ++all)
        {
            const auto* pItem = *all;
            const bool isGroup = pItem->icon(0).cacheKey() == pTree->iconGroup.cacheKey();
            EXPECT_TRUE(isGroup || pItem->icon(0).cacheKey() == pTree->iconKey.cacheKey());
            const auto row = (pItem->parent() ? pItem->parent()->text(0) + "/" : "") + pItem->text(0) + pItem->text(1);
            rows.append(isGroup ? "(" + row + ")" : row);
        }
        return rows.join(" ");
    }

    CalibrationDataWidget& widget = opened();
    DomTreeWidget* pTree = widget.pDomTreeWidgetElement;
    DomTreeWidget* pAttributes = widget.pDomTreeWidgetAttribute;
};

} // namespace

TEST_F(CalibrationPageTest, ShowsElementsAttributesAndText)
{
    EXPECT_EQ(rows(), "(c) c/leaf<raw> (c/g) g/leaf g/leaffirst & ä") << "the last comes first";
    auto* pGroup = item(pTree, {"c", "g"});
    EXPECT_EQ(pTree->childFind(pGroup, "leaf", 1), 1);
    EXPECT_EQ(pTree->childFind(pGroup, "leaf", 2), -1);
    EXPECT_EQ(pTree->childFind(pGroup, "none", 0), -1);

    board->requestsClear();
    pTree->expandAll();
    click(pTree, pGroup);
    ASSERT_EQ(pAttributes->topLevelItemCount(), 2);
    EXPECT_EQ(item(pAttributes, {"m"})->text(1), "ä <b>");
    EXPECT_EQ(item(pAttributes, {"n"})->data(1, Qt::UserRole), "1");
    EXPECT_EQ(widget.pPlainTextEdit->toPlainText(), "");
    click(pTree, item(pTree, {"c", "leaf"}));
    EXPECT_EQ(pAttributes->topLevelItemCount(), 0);
    EXPECT_EQ(widget.pPlainTextEdit->toPlainText(), "<raw>");
    EXPECT_TRUE(widget.pPlainTextEdit->isReadOnly());
    QTest::keyClick(pTree, Qt::Key_Down);
    EXPECT_EQ(pTree->currentItem(), pGroup);
    EXPECT_EQ(pAttributes->topLevelItemCount(), 2) << "keys show the row as clicks do";
    EXPECT_EQ(widget.pPlainTextEdit->toPlainText(), "");
    EXPECT_EQ(board->requestCount(), 0u) << "selecting costs no command";

    // Prefixes are parts of the names, declared or not.
    EXPECT_EQ(elementsOf("<c xmlns='urn:a' xmlns:p='urn:b'><q:d p:k='1'/></c>"), 1);
    click(pTree, pTree->topLevelItem(0));
    EXPECT_EQ(pAttributes->topLevelItemCount(), 2);
    EXPECT_EQ(pTree->topLevelItem(0)->child(0)->text(0), "q:d");
}

TEST_F(CalibrationPageTest, ReadsAfreshWithEachRefresh)
{
    board->answersClear();
    emit pMainWindow->refresh();
    EXPECT_GT(rows().count(' '), 200) << "the board's own calibration";
    board->requestsClear();
    EXPECT_EQ(elementsOf("<other a='1'>x</other>"), 1);
    EXPECT_EQ(sent("Camera::calibrationGet"_id), 1u);
    EXPECT_EQ(sent(Fault::Download), 1u);
    EXPECT_TRUE(board->requests().front().query["block.signal"].asBool());
    EXPECT_EQ(rows(), "otherx");
    click(pTree, pTree->topLevelItem(0));
    EXPECT_EQ(widget.pPlainTextEdit->toPlainText(), "x");
    emit pMainWindow->refresh();
    EXPECT_EQ(pTree->currentItem(), nullptr) << "an unchanged file is shown as a new one";
    EXPECT_EQ(widget.pPlainTextEdit->toPlainText(), "");
    EXPECT_EQ(pAttributes->topLevelItemCount(), 0);
}

TEST_F(CalibrationPageTest, FilesOfTheUserStayAsTheyAre)
{
    fileWrite("calibration.xml", "mine");
    EXPECT_EQ(elementsOf("<a/>"), 1);
    EXPECT_EQ(fileRead("calibration.xml"), "mine");
    EXPECT_TRUE(QFile::remove("calibration.xml"));
}

TEST_F(CalibrationPageTest, WhatIsNoXmlLeavesBothTreesEmpty)
{
    const auto previous = qInstallMessageHandler(debugCollect);
    click(pTree, pTree->topLevelItem(0));
    debugText.clear();
    EXPECT_EQ(elementsOf("<a>\n<b></a>"), 0);
    EXPECT_EQ(debugText, "Read XML failed");
    EXPECT_EQ(pAttributes->topLevelItemCount(), 0);
    const auto told = widget.pPlainTextEdit->placeholderText();
    EXPECT_TRUE(told.startsWith("Read XML failed: ") && told.endsWith("(line 2): calibration.xml")) << str(told);
    pTree->refreshMaybe();
    EXPECT_EQ(pTree->topLevelItemCount(), 0);
    EXPECT_EQ(elementsOf(sample), 1);
    EXPECT_EQ(widget.pPlainTextEdit->placeholderText(), "") << "a failure that is over";
    qInstallMessageHandler(previous);
}

TEST_F(CalibrationPageTest, FailingBoardLeavesItsTextAndAClearedTree)
{
    const std::pair<Fault, const char*> cases[] = {{{Fault::Error, "Camera::calibrationGet"_id}, "Server: "},
                                                   {{Fault::WrongTypes, "Camera::calibrationGet"_id}, "\""},
                                                   {{Fault::ResetInBody, Fault::Download}, "failed"}};
    for (const auto& [fault, text] : cases)
    {
        EXPECT_EQ(elementsOf(sample), 1);
        board->faultSet(fault);
        EXPECT_EQ(elementsOf(sample), 0);
        board->faultsClear();
        EXPECT_TRUE(status().contains(text)) << str(status());
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(CalibrationPageTest, HostileNamesAreRefusedAndOddOnesRead)
{
    const auto here = QDir().entryList(QDir::AllEntries | QDir::Hidden);
    // The last component is the name here; whether it is one there is the board's business.
    for (const auto& [pName, downloads] : {std::pair("..", 0u), {"a\nb", 0u}, {"../../calibration.xml", 1u}})
    {
        board->answerSet("Camera::calibrationGet"_id, "calib.file", pName);
        board->requestsClear();
        emit pMainWindow->refresh();
        EXPECT_EQ(status().startsWith("File name check failed: "), downloads == 0) << str(status());
        EXPECT_EQ(sent(Fault::Download), downloads);
        EXPECT_EQ(pTree->topLevelItemCount(), 0);
    }
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::Hidden), here);
    for (const char* pName : {"ä€ b.xml", "a#b?c.xml", "100%.xml"})
        EXPECT_EQ(elementsOf(sample, QString::fromUtf8(pName)), 1) << pName;
}

TEST_F(CalibrationPageTest, ActivatingTheWindowKeepsTheUsersPlace)
{
    item(pTree, {"c"})->setExpanded(true);
    item(pTree, {"c", "g"})->setExpanded(true);
    pTree->setCurrentItem(item(pTree, {"c", "g"})->child(1));
    pMainWindow->activateWindow();
    ASSERT_TRUE(waitUntil([&] { return pMainWindow->isActiveWindow(); }));
    const auto activate = [&]
    {
        QEvent event(QEvent::WindowActivate);
        QApplication::sendEvent(pMainWindow.get(), &event);
    };
    pTree->topLevelItem(0)->setText(1, "old");
    activate();
    EXPECT_EQ(pTree->topLevelItem(0)->text(1), "") << "refreshed";
    EXPECT_TRUE(item(pTree, {"c", "g"})->isExpanded());
    EXPECT_EQ(pTree->currentItem(), item(pTree, {"c", "g"})->child(1));
    const auto document = pTree->doc.toString();
    for (auto* pItem = pTree->topLevelItem(0); pItem; pItem = pTree->itemBelow(pItem))
        pItem->setText(1, pItem->text(1) + "!");
    EXPECT_EQ(pTree->doc.toString(), document) << "an element has no value of its own to set";

    // Not under the user's hands.
    click(pTree, item(pTree, {"c", "g"}));
    QDomDocument other;
    other.setContent(QString("<k/>"));
    pAttributes->domBinding(other);
    pAttributes->refreshMaybe();
    auto* pKey = pAttributes->topLevelItem(0);
    pKey->setData(1, Qt::UserRole, "old");
    pAttributes->editItem(pKey, 1);
    auto* pEditor = pAttributes->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(pEditor, nullptr);
    activate();
    ASSERT_EQ(pAttributes->topLevelItem(0), pKey);
    int changes = 0;
    QObject::connect(pAttributes, &DomTreeWidget::domChanged, pAttributes, [&] { ++changes; });
    QTest::keyClicks(pEditor, "new");
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(pKey->text(1), "new");
    EXPECT_EQ(changes, 2) << "the text and the value behind it, once each";
}

TEST_F(CalibrationPageTest, LargeFilesAreFilledAsTheyAreOpened)
{
    QByteArray xml = "<c>";
    for (int i = 0; i < 4000; ++i)
        xml += "<g" + QByteArray::number(i) + "><a>1<![CDATA[2]]></a><d><e/><f x='1'>" + QByteArray::number(i) +
               "</f></d></g" + QByteArray::number(i) + ">";
    EXPECT_EQ(elementsOf(xml + "<h>" + QByteArray("<i/>").repeated(200'000) + "</h></c>"), 1);
    auto* pRoot = pTree->topLevelItem(0);
    ASSERT_EQ(pRoot->childCount(), 4001);
    auto* pHuge = pRoot->child(0);
    auto* pFirst = pRoot->child(4000);
    const auto items = [this]
    {
        int count = 0;
        for (QTreeWidgetItemIterator all(pTree); *all; ++all)
            ++count;
        return count;
    };
    EXPECT_NEAR(items(), 10'000, 2) << "of 216,000";
    EXPECT_EQ(pHuge->childCount(), 0);
    EXPECT_EQ(pFirst->childCount(), 0);

    // What is opened or asked for is there.
    pRoot->setExpanded(true);
    pTree->setCurrentItem(pFirst);
    QTest::keyClick(pTree, Qt::Key_Right);
    ASSERT_EQ(pFirst->childCount(), 2);
    EXPECT_EQ(pFirst->child(1)->text(1), "12");
    auto* pLeaf = item(pTree, {"c", "g0", "d", "f"});
    EXPECT_EQ(pLeaf->text(1), "0");
    EXPECT_EQ(pLeaf->data(0, Qt::UserRole).value<QDomElement>().attribute("x"), "1");
    EXPECT_LT(pLeaf->text(1).capacity(), 100) << "no more memory than the text needs";
    pTree->setCurrentItem(pLeaf);
    pTree->refresh();
    EXPECT_EQ(pTree->currentItem(), item(pTree, {"c", "g0", "d", "f"}));
    EXPECT_TRUE(item(pTree, {"c", "g0"})->isExpanded());

    // To unfold all has its bounds, but for what is meant itself.
    const int before = items();
    pTree->setCurrentItem(pTree->topLevelItem(0));
    QTest::keyClick(pTree, Qt::Key_Asterisk);
    EXPECT_NEAR(items(), before + 10'000, 2);
    EXPECT_TRUE(pTree->topLevelItem(0)->child(1)->child(0)->isExpanded());
    EXPECT_EQ(pTree->childCount(item(pTree, {"c", "h"})), 200'000) << "asked for";
    pTree->setCurrentItem(item(pTree, {"c", "h"}));
    QTest::keyClick(pTree, Qt::Key_Asterisk);
    EXPECT_TRUE(item(pTree, {"c", "h"})->isExpanded());
}

TEST_F(CalibrationPageTest, HugeTextsAreShownInPart)
{
    EXPECT_EQ(
        elementsOf("<t a='" + QByteArray(3'000'000, 'x') + "'>" + QByteArray("1.25 ").repeated(1'000'000) + "</t>"), 1);
    click(pTree, pTree->topLevelItem(0));
    EXPECT_EQ(pTree->topLevelItem(0)->text(1).size(), 5'000'000);
    EXPECT_TRUE(widget.pPlainTextEdit->toPlainText().endsWith("... (5000000 characters)"));
    QElapsedTimer clock;
    clock.start();
    widget.grab();
    EXPECT_LT(clock.elapsed(), waitLimit());
}

TEST_F(CalibrationPageTest, SerialLineMovesNoFiles)
{
    serialUse();
    const auto& reopened = opened();
    config.preferences.server.type = "http";
    EXPECT_EQ(status(), "Download failed: calibration.xml did not arrive");
    EXPECT_EQ(reopened.pDomTreeWidgetElement->topLevelItemCount(), 0);
}
