#include "tests/support/qt-main.h"
#include "tuning-client/source/control/json-model.h"
#include "tuning-client/source/control/json-view.h"
#include "tuning-json/source/value.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

using t_json::Value;

namespace
{
class JsonTreeTest : public testing::Test
{
protected:
    JsonTreeTest()
    {
        view.resize(600, 800);
        view.show();
        view.activateWindow();
        EXPECT_TRUE(waitUntil([&] { return view.isActiveWindow(); }));
    }

    void show(const std::string& text, bool isReadOnly = false)
    {
        std::istringstream stream(text);
        stream >> document;
        view.binding(&document, isReadOnly);
        view.expandAll();
        pTester =
            std::make_unique<QAbstractItemModelTester>(&model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    std::string text() const
    {
        std::ostringstream stream;
        stream << document;
        return stream.str();
    }

    JsonModel& model() { return *qobject_cast<JsonModel*>(view.model()); }

    /// The cell of the row that a path of keys leads to.
    QModelIndex cell(const QStringList& path, int column = JsonModel::ColumnValue)
    {
        QModelIndex found;
        for (const auto& key : path)
        {
            int row = 0;
            while (row < model().rowCount(found) && model().index(row, 0, found).data().toString() != key)
                ++row;
            found = model().index(row, 0, found);
            EXPECT_TRUE(found.isValid()) << key.toStdString();
        }
        return found.sibling(found.row(), column);
    }

    /// The editor that the user opens on the value, or null.
    template <class Editor>
    Editor* editor(const QStringList& path)
    {
        const auto index = cell(path);
        view.scrollTo(index);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
        for (auto* pEditor : view.viewport()->findChildren<Editor*>())
        {
            if (pEditor->isVisible() && !pEditor->parentWidget()->inherits("QComboBox"))
                return pEditor;
        }
        return nullptr;
    }

    /// Types a text over the old one and confirms.
    void type(const QStringList& path, const QString& typed)
    {
        auto* pLineEdit = editor<QLineEdit>(path);
        ASSERT_NE(pLineEdit, nullptr);
        pLineEdit->selectAll();
        QTest::keyClick(pLineEdit, Qt::Key_Delete);
        for (const auto character : typed)
            pLineEdit->insert(character);
        QTest::keyClick(pLineEdit, Qt::Key_Return);
        // The editor commits with the next turn of the event loop, or stays open over a text that does not fit.
        QCoreApplication::processEvents();
        if (pLineEdit->isVisible())
            QTest::keyClick(pLineEdit, Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Right-clicks a row; gives the entries of the menu that came.
    QStringList menu(const QStringList& path)
    {
        QStringList entries;
        QTimer::singleShot(0,
                           [&]
                           {
                               if (auto* pMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
                               {
                                   for (const auto* pAction : pMenu->actions())
                                       entries.append(pAction->text());
                                   pMenu->close();
                               }
                           });
        const auto index = cell(path, JsonModel::ColumnKey);
        const auto place = view.visualRect(index).center();
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &event);
        QCoreApplication::processEvents();
        return entries;
    }

    Value document;
    JsonView view{nullptr};
    std::unique_ptr<QAbstractItemModelTester> pTester;
};

constexpr auto sample = R"({"z": {"list": [1, {"k": "v"}, [2.5]]}, "a": true, "d": 0.1, "i": -7,
    "n": null, "s": "grün", "u": 18446744073709551615, "l": 9007199254740993, "e": []})";
} // namespace

TEST_F(JsonTreeTest, ShowsKeysSortedWithValueAndType)
{
    show(sample);
    const struct
    {
        QStringList path;
        const char* pValue;
        const char* pType;
    } rows[] = {{{"a"}, "true", "Bool"},
                {{"d"}, "0.1", "Double"},
                {{"e"}, "", "Array"},
                {{"i"}, "-7", "Int"},
                {{"l"}, "9007199254740993", "Int"},
                {{"n"}, "null", "Null"},
                {{"s"}, "grün", "String"},
                {{"u"}, "18446744073709551615", "UInt"},
                {{"z"}, "", "Object"},
                {{"z", "list"}, "", "Array"},
                {{"z", "list", "0"}, "1", "Int"},
                {{"z", "list", "1", "k"}, "v", "String"},
                {{"z", "list", "2", "0"}, "2.5", "Double"}};
    for (const auto& row : rows)
    {
        const auto key = row.path.join('/').toStdString();
        EXPECT_EQ(cell(row.path).data().toString(), row.pValue) << key;
        EXPECT_EQ(cell(row.path, JsonModel::ColumnType).data().toString(), row.pType) << key;
    }
    QString keys;
    for (int i = 0; i < model().rowCount(); ++i)
        keys += model().index(i, 0).data().toString();
    EXPECT_EQ(keys, "adeilnsuz");
    EXPECT_EQ(model().headerData(1, Qt::Horizontal).toString(), "Value");
    EXPECT_FALSE(model().headerData(0, Qt::Vertical).isValid());
    EXPECT_EQ(text(), sample);
    const auto* pDelegate = qobject_cast<QStyledItemDelegate*>(view.itemDelegate());
    for (const auto& [number, drawn] : {std::pair(0.123456789, "0.123456789"), {16777217.25, "16777217.25"}})
        EXPECT_EQ(pDelegate->displayText(number, QLocale::c()), drawn) << "as it is edited and stored";
    for (const auto* pScalar : {"1", "[]", "{}", "null"})
    {
        show(pScalar);
        EXPECT_EQ(model().rowCount(), 0);
        EXPECT_EQ(text(), pScalar);
    }
}

TEST_F(JsonTreeTest, TypedTextReachesTheDocumentWhenItFitsTheType)
{
    const struct
    {
        const char* pValue;
        const char* pTyped;
        const char* pExpected;
    } cases[] = {
        {"5", "-12", "-12"},
        {"5", "1x2.3", "123"},
        {"5", "", "0"},
        {"5", "-", "0"},
        {"5", "9223372036854775807", "9223372036854775807"},
        {"5", "9223372036854775808", "5"},
        {"9007199254740993", "9007199254740995", "9007199254740995"},
        {"18446744073709551615", "-7", "7"},
        {"18446744073709551615", "", "0"},
        {"18446744073709551615", "18446744073709551616", "18446744073709551615"},
        {"0.1", "0.3", "0.3"},
        {"0.1", "-12.50", "-12.5"},
        {"0.1", "7", "7.0"},
        {"0.1", "12", "0.1"},
        {"0.1", "1x5", "0.1"},
        {"0.1", "", "0.1"},
        {"\"old\"", "new \"ä\"", "\"new \\\"ä\\\"\""},
        {"\"old\"", "", "\"\""},
        {"\"old\"", "old", "\"old\""},
        {"\"\\u00e4\"", "b", "\"b\""},
        {"null", "x", "null"},
        {"[]", "x", "[]"},
        {"{\"k\": 1}", "x", "{\"k\": 1}"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(std::string(c.pValue) + " <- " + c.pTyped);
        show(std::string("{\"v\": ") + c.pValue + "}");
        const auto shown = cell({"v"}).data();
        type({"v"}, QString::fromUtf8(c.pTyped));
        EXPECT_EQ(text(), std::string("{\"v\": ") + c.pExpected + "}");
        if (c.pExpected == std::string(c.pValue))
        {
            EXPECT_EQ(cell({"v"}).data(), shown);
        }
    }
}

TEST_F(JsonTreeTest, TruthValuesAreChosen)
{
    show(R"({"v": [true, false]})");
    for (const char* pKey : {"0", "1"})
    {
        auto* pComboBox = editor<QComboBox>({"v", pKey});
        ASSERT_NE(pComboBox, nullptr);
        EXPECT_EQ(pComboBox->currentText(), cell({"v", pKey}).data().toString());
        pComboBox->setCurrentIndex(1 - pComboBox->currentIndex());
        view.setFocus();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(text(), R"({"v": [false, true]})");
}

TEST_F(JsonTreeTest, LongTextsComeBackWhole)
{
    const std::string longText(100'000, 'x');
    show("{\"v\": \"" + longText + "\"}");
    auto* pLineEdit = editor<QLineEdit>({"v"});
    ASSERT_NE(pLineEdit, nullptr);
    QTest::keyClick(pLineEdit, Qt::Key_End);
    QTest::keyClick(pLineEdit, Qt::Key_Y);
    QTest::keyClick(pLineEdit, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(text(), "{\"v\": \"" + longText + "y\"}");
    view.resizeColumnToContents(1);
    EXPECT_LT(view.columnWidth(1), 30'000);
}

TEST_F(JsonTreeTest, DuplicatesAndDeletesElements)
{
    show(R"({"v": [[10, 11], {"k": "a"}, 12]})");
    const auto act = [&](const QStringList& path, QAction* pAction)
    {
        view.setCurrentIndex(cell(path));
        pAction->trigger();
    };
    act({"v", "2"}, view.pActionDuplicate);
    EXPECT_EQ(text(), R"({"v": [[10, 11], {"k": "a"}, 12, 12]})");
    act({"v", "0"}, view.pActionDuplicate);
    act({"v", "1", "0"}, view.pActionDelete);
    EXPECT_EQ(text(), R"({"v": [[10, 11], [11], {"k": "a"}, 12, 12]})");
    // All rows know where their elements are now.
    type({"v", "0", "1"}, "1");
    type({"v", "1", "0"}, "2");
    type({"v", "2", "k"}, "b");
    type({"v", "3"}, "3");
    type({"v", "4"}, "4");
    EXPECT_EQ(text(), R"({"v": [[10, 1], [2], {"k": "b"}, 3, 4]})");
    EXPECT_EQ(model().rowCount(cell({"v"}, 0)), 5);
    for (int i = 0; i < 5; ++i)
        act({"v", "0"}, view.pActionDelete);
    EXPECT_EQ(text(), R"({"v": []})");
    EXPECT_EQ(model().rowCount(cell({"v"}, 0)), 0);
}

TEST_F(JsonTreeTest, OnlyElementsOfAnArrayHaveAMenu)
{
    show(R"({"v": [1, {"k": 2}], "w": 3})");
    EXPECT_EQ(menu({"v", "0"}), QStringList({"Duplicate", "Delete"}));
    EXPECT_EQ(menu({"v", "1"}), QStringList({"Duplicate", "Delete"}));
    EXPECT_EQ(menu({"v", "1", "k"}), QStringList());
    EXPECT_EQ(menu({"w"}), QStringList());
    // The action of a shortcut or a test finds the same rule.
    view.setCurrentIndex(cell({"w"}));
    view.pActionDelete->trigger();
    view.pActionDuplicate->trigger();
    show("[1, 2]");
    EXPECT_EQ(menu({"1"}), QStringList());
    view.setCurrentIndex(QModelIndex());
    view.pActionDelete->trigger();
    EXPECT_EQ(text(), "[1, 2]");
}

TEST_F(JsonTreeTest, ReadOnlyHasNoMenuAndNoEditors)
{
    show(R"({"v": [1, true]})", true);
    EXPECT_EQ(view.pMenu, nullptr);
    EXPECT_EQ(menu({"v", "0"}), QStringList());
    EXPECT_EQ(editor<QLineEdit>({"v", "0"}), nullptr);
    EXPECT_EQ(editor<QComboBox>({"v", "1"}), nullptr);
}

TEST_F(JsonTreeTest, BindingAgainLeavesNothingBehind)
{
    show(R"({"v": [1]})");
    const QPointer<QAbstractItemModel> pFirst = view.model();
    const auto* pMenu = view.pMenu;
    ASSERT_NE(editor<QLineEdit>({"v", "0"}), nullptr);
    for (int i = 0; i < 3; ++i)
    {
        pTester.reset();
        show(R"({"v": [1, 2]})");
    }
    EXPECT_TRUE(pFirst.isNull());
    EXPECT_EQ(view.findChildren<QAbstractItemDelegate*>().size(), 1);
    EXPECT_EQ(view.pMenu, pMenu);
    EXPECT_EQ(menu({"v", "1"}), QStringList({"Duplicate", "Delete"}));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    view.pActionDuplicate->trigger();
    EXPECT_EQ(text(), R"({"v": [1, 2, 2]})");
    show(R"({"v": [1]})", true);
    EXPECT_EQ(menu({"v", "0"}), QStringList());
}
