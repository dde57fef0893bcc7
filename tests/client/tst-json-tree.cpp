#include "tests/support/actions.h"
#include "tests/support/editing.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/control/json-model.h"
#include "tuning-client/source/control/json-view.h"
#include "tuning-json/source/value.h"

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

    /// Whether the editor stays open over the text that was typed.
    bool type(const QStringList& path, const QString& typed)
    {
        auto* pLineEdit = editor<QLineEdit>(path);
        return pLineEdit ? typeOver(pLineEdit, typed) : throw std::runtime_error("no editor");
    }

    /// Right-clicks a row; gives the entries of the menu that came.
    QString menu(const QStringList& path)
    {
        const auto place = view.visualRect(cell(path, JsonModel::ColumnKey)).center();
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, view.viewport()->mapToGlobal(place));
        return popup([&] { QApplication::sendEvent(view.viewport(), &event); }).join(" ");
    }

    void act(const QStringList& path, QAction* pAction)
    {
        view.setCurrentIndex(path.isEmpty() ? QModelIndex() : cell(path));
        pAction->trigger();
    }

    /// A line for each row, the children behind their parents.
    QString rows(const QModelIndex& parent = {})
    {
        QString lines;
        for (int row = 0; row < model().rowCount(parent); ++row)
        {
            const auto index = model().index(row, 0, parent);
            lines += QString(parent.isValid() ? "  " : "") + index.data().toString() + "|" +
                     index.sibling(row, 1).data().toString() + "|" + index.sibling(row, 2).data().toString() + "\n" +
                     rows(index);
        }
        return lines;
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
    EXPECT_EQ(rows(), "a|true|Bool\nd|0.1|Double\ne||Array\ni|-7|Int\nl|9007199254740993|Int\nn|null|Null\n"
                      "s|grün|String\nu|18446744073709551615|UInt\nz||Object\n  list||Array\n  0|1|Int\n"
                      "  1||Object\n  k|v|String\n  2||Array\n  0|2.5|Double\n");
    EXPECT_EQ(model().headerData(1, Qt::Horizontal).toString(), "Value");
    EXPECT_FALSE(model().headerData(0, Qt::Vertical).isValid());
    EXPECT_EQ(text(), sample);
    const auto* pDelegate = qobject_cast<QStyledItemDelegate*>(view.itemDelegate());
    EXPECT_EQ(pDelegate->displayText(16777217.25, QLocale::c()), "16777217.25") << "as it is edited and stored";
    show("1");
    EXPECT_EQ(rows(), "");
}

TEST_F(JsonTreeTest, TypedTextReachesTheDocumentWhenItFitsTheType)
{
    // The last: whether the editor stays open.
    const std::tuple<std::string, const char*, std::string, bool> cases[] = {
        {"5", "-12", "-12", false},
        {"5", "1x2.3", "123", false},
        {"5", "", "0", false},
        {"5", "-", "0", false},
        {"5", "9223372036854775807", "9223372036854775807", false},
        {"5", "9223372036854775808", "5", true},
        {"18446744073709551615", "-7", "7", false},
        {"18446744073709551615", "", "0", false},
        {"18446744073709551615", "18446744073709551616", "18446744073709551615", true},
        {"0.1", "-12.50", "-12.5", false},
        {"0.1", "1,5", "1.5", false},
        {"0.1", "7", "7.0", false},
        {"0.1", "12", "0.1", true},
        {"0.1", "1x5", "0.1", true},
        {"0.1", "", "0.1", true},
        {"\"old\"", "new, \"ä\"", "\"new, \\\"ä\\\"\"", false},
        {"\"old\"", "", "\"\"", false},
        {"\"\\u00e4\"", "b", "\"b\"", false},
        {"null", "x", "null", false},
        {"{\"k\": 1}", "x", "{\"k\": 1}", false},
    };
    for (const auto& [value, typed, expected, isKept] : cases)
    {
        SCOPED_TRACE(value + " <- " + typed);
        show("{\"v\": " + value + "}");
        const auto shown = rows();
        EXPECT_EQ(type({"v"}, QString::fromUtf8(typed)), isKept);
        EXPECT_EQ(text(), "{\"v\": " + expected + "}");
        EXPECT_EQ(rows() == shown, expected == value);
    }
}

TEST_F(JsonTreeTest, AnEditorWithoutANumberStaysWhateverIsClicked)
{
    show(R"({"v": 0.5, "w": 1})");
    const QPointer<QLineEdit> pLineEdit = editor<QLineEdit>({"v"});
    pLineEdit->selectAll();
    QTest::keyClicks(pLineEdit, "-");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell({"w"})).center());
    ASSERT_TRUE(waitUntil([&] { return !pLineEdit || pLineEdit->hasFocus(); }) && pLineEdit);
    QLineEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(waitUntil([&] { return !pLineEdit || !pLineEdit->hasFocus(); }) && pLineEdit);
    EXPECT_TRUE(pLineEdit->isVisible());
    EXPECT_NE(pLineEdit->palette(), QPalette()) << "marked";
    EXPECT_TRUE(pLineEdit->toolTip().contains("12.0"));
    QTest::keyClicks(pLineEdit, "2.5");
    EXPECT_EQ(pLineEdit->palette(), QPalette()) << "no longer marked";
    QTest::keyClick(pLineEdit, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(text(), R"({"v": -2.5, "w": 1})");
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
    act({"v", "2"}, view.pActionDuplicate);
    EXPECT_EQ(text(), R"({"v": [[10, 11], {"k": "a"}, 12, 12]})");
    act({"v", "0"}, view.pActionDuplicate);
    act({"v", "1", "0"}, view.pActionDelete);
    // All rows know where their elements are now.
    type({"v", "0", "1"}, "1");
    type({"v", "1", "0"}, "2");
    type({"v", "2", "k"}, "b");
    type({"v", "4"}, "4");
    EXPECT_EQ(text(), R"({"v": [[10, 1], [2], {"k": "b"}, 12, 4]})");
    for (int i = 0; i < 5; ++i)
        act({"v", "0"}, view.pActionDelete);
    EXPECT_EQ(text(), R"({"v": []})");
    EXPECT_EQ(rows(), "v||Array\n");
}

TEST_F(JsonTreeTest, BindingAgainKeepsTheUsersPlace)
{
    show(R"({"a": {"b": {"c": 1}}, "v": [1, {"k": 2}], "w": {"x": 1}})");
    view.collapse(cell({"w"}, 0));
    view.setCurrentIndex(cell({"v", "1", "k"}));
    std::istringstream stream(R"({"a": {"b": 1}, "aa": {"y": 2}, "v": [0, {"k": 3}], "w": {"x": 1}})");
    stream >> document;
    view.binding(&document, false);
    EXPECT_EQ(view.currentIndex(), cell({"v", "1", "k"}));
    const std::pair<QStringList, bool> rows[] = {
        {{"a"}, true}, {{"aa"}, false}, {{"v"}, true}, {{"v", "1"}, true}, {{"w"}, false}};
    for (const auto& [path, isUnfolded] : rows)
        EXPECT_EQ(view.isExpanded(cell(path, JsonModel::ColumnKey)), isUnfolded) << path.join('/').toStdString();
    view.resize(150, 300);
    view.horizontalScrollBar()->setValue(50);
    view.binding(&document, false);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 50);
    view.resize(600, 800);
    // A value is wider than the digit in its place, and its column grows with it.
    const int width = view.columnWidth(JsonModel::ColumnValue);
    EXPECT_GE(width, view.fontMetrics().horizontalAdvance(QString(20, '0')));
    type({"v", "0"}, "1");
    EXPECT_EQ(view.columnWidth(JsonModel::ColumnValue), width);
    show(R"({"s": "old"})");
    type({"s"}, QString(40, '0'));
    EXPECT_GE(view.columnWidth(JsonModel::ColumnValue), 2 * width - 20);
}

TEST_F(JsonTreeTest, OnlyElementsOfAnArrayHaveAMenu)
{
    show(R"({"v": [1, {"k": 2}], "w": 3})");
    EXPECT_EQ(menu({"v", "0"}), "Duplicate Delete");
    EXPECT_EQ(menu({"v", "1", "k"}), "");
    EXPECT_EQ(menu({"w"}), "");
    // The action of a shortcut finds the same rule.
    act({"w"}, view.pActionDelete);
    act({"w"}, view.pActionDuplicate);
    show("[1, 2]");
    EXPECT_EQ(menu({"1"}), "");
    act({}, view.pActionDelete);
    EXPECT_EQ(text(), "[1, 2]");
}

TEST_F(JsonTreeTest, BindingAgainLeavesNothingBehind)
{
    show(R"({"v": [1, true]})", true);
    EXPECT_EQ(menu({"v", "0"}), "");
    EXPECT_EQ(editor<QLineEdit>({"v", "0"}), nullptr);
    EXPECT_EQ(editor<QComboBox>({"v", "1"}), nullptr);
    show(R"({"v": [1]})");
    const QPointer<QAbstractItemModel> pFirst = view.model();
    ASSERT_NE(editor<QLineEdit>({"v", "0"}), nullptr);
    for (int i = 0; i < 3; ++i)
    {
        pTester.reset();
        show(R"({"v": [1, 2]})");
    }
    EXPECT_TRUE(pFirst.isNull());
    EXPECT_EQ(view.findChildren<QAbstractItemDelegate*>().size(), 1);
    EXPECT_EQ(menu({"v", "1"}), "Duplicate Delete");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "one menu, not one for each binding";
    view.pActionDuplicate->trigger();
    EXPECT_EQ(text(), R"({"v": [1, 2, 2]})");
    show(R"({"v": [1]})", true);
    EXPECT_EQ(menu({"v", "0"}), "");
}
