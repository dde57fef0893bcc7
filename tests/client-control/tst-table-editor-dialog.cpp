#include "tuning-client/source/table-editor-dialog.h"

#include "tests/support/modals.h"
#include "tests/support/qt-main.h"
#include "tuning-common/source/json-app.h"

using t_common::JsonApp;

namespace
{
std::string edited(const TableEditorDialog& dialog)
{
    Json::Value table;
    dialog.tableGet(table);
    return JsonApp::toString(table, "");
}

struct Editor
{
    explicit Editor(const std::string& text) : dialog(JsonApp::fromString("[" + text + "]")[0], nullptr) {}

    void trigger(const QString& text)
    {
        for (auto pAction : dialog.findChildren<QAction*>())
        {
            if (pAction->text() == text)
                return pAction->trigger();
        }
        ADD_FAILURE() << text.toStdString();
    }

    /// Confirms the editor's text. Whether it has closed.
    bool isTaken(QLineEdit* pLineEdit)
    {
        QTest::keyClick(pLineEdit, Qt::Key_Return);
        QCoreApplication::processEvents();
        return !pLineEdit->isVisible();
    }

    /// Answers each box and keeps the texts.
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    QStringList texts;
    const Modals boxes{[this](QDialog& box)
                       {
                           auto& messageBox = dynamic_cast<QMessageBox&>(box);
                           EXPECT_EQ(box.windowTitle(), "Warning");
                           EXPECT_EQ(messageBox.textFormat(), Qt::PlainText);
                           EXPECT_EQ(messageBox.defaultButton(), messageBox.button(QMessageBox::No));
                           texts << messageBox.text();
                           messageBox.button(answer)->click();
                       }};
    TableEditorDialog dialog;
    QTableWidget& grid = *dialog.findChild<QTableWidget*>();
};

const std::string table = R"({"columns":["gain","level"],"rows":[[1,2],[3,4.5],[5,6]]})";
} // namespace

TEST(TableEditorDialog, GivesBackWhatTheGridShows)
{
    const std::pair<const char*, const char*> cases[] = {
        {R"({"columns":["a","b"],"rows":[[1.23456789,-12345678],[1e-7,true]]})",
         R"({"columns":["a","b"],"rows":[[1.23457,-12345700.0],[1e-07,1.0]]})"},
        {R"({"columns":["a","b"],"rows":[[1],[],null,[1,2,3]]})",
         R"({"columns":["a","b"],"rows":[[1.0,0.0],[0.0,0.0],[0.0,0.0],[1.0,2.0]]})"},
        {R"({"columns":["a"]})", R"({"columns":["a"],"rows":null})"},
        {R"({"rows":[[1],[2]]})", R"({"columns":null,"rows":[[],[]]})"},
        {"null", R"({"columns":null,"rows":null})"},
    };
    for (const auto& [text, expected] : cases)
    {
        const Editor editor(text);
        EXPECT_EQ(edited(editor.dialog), expected);
        EXPECT_EQ(editor.texts, QStringList());
    }
}

TEST(TableEditorDialog, WarnsOfWrongTypesAndShowsWhatItHadRead)
{
    const std::tuple<std::string, int, int> cases[] = {
        {"[]", 0, 0},
        {R"({"columns":{"a":1},"rows":[]})", 0, 0},
        {R"({"columns":["a",["b"]],"rows":[[1]]})", 0, 0},
        {R"({"columns":["a","b"],"rows":{"x":[1]}})", 2, 0},
        {R"({"columns":["a","b"],"rows":[[1,2],3,[4,5]]})", 2, 2},
        {R"({"columns":["a","b"],"rows":[[1,2],[3,"four"],[4,5]]})", 2, 2},
        {R"({"columns":["a","b"],"rows":[{"a":1}]})", 2, 1},
    };
    for (const auto& [text, columns, rows] : cases)
    {
        const Editor editor(text);
        EXPECT_EQ(editor.texts.size(), 1) << text;
        EXPECT_FALSE(editor.texts.value(0).isEmpty());
        EXPECT_EQ(editor.grid.columnCount(), columns) << text;
        EXPECT_EQ(editor.grid.rowCount(), rows) << text;
        edited(editor.dialog);
    }
}

TEST(TableEditorDialog, RefusesTablesBeyondTheLimits)
{
    const auto many = [](int count, const char* element)
    { return "[" + QStringList(QVector<QString>(count, element).toList()).join(",").toStdString() + "]"; };
    const auto boxesOf = [](const std::string& columns, const std::string& rows)
    { return Editor("{\"columns\":" + columns + ",\"rows\":" + rows + "}").texts; };
    EXPECT_EQ(boxesOf(many(256, "\"c\""), "[]"), QStringList());
    EXPECT_EQ(boxesOf(many(257, "\"c\""), "[]"), QStringList("Table has more than 256 columns"));
    EXPECT_EQ(boxesOf(many(100, "\"c\""), many(1001, "[]")), QStringList("Table has more than 100000 cells"));
    EXPECT_EQ(boxesOf("[]", many(100001, "[]")), QStringList("Table has more than 100000 cells"));
}

TEST(TableEditorDialog, InsertsAtTheCurrentRowOrTheEnd)
{
    Editor editor(table);
    editor.dialog.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(editor.grid.currentRow(), -1);
    editor.trigger("Insert");
    editor.grid.setCurrentCell(0, 1);
    editor.trigger("Insert");
    EXPECT_EQ(edited(editor.dialog),
              R"({"columns":["gain","level"],"rows":[[0,0],[1.0,2.0],[3.0,4.5],[5.0,6.0],[0,0]]})");
    editor.trigger("Reset");
    EXPECT_EQ(editor.grid.currentRow(), -1);
    EXPECT_TRUE(editor.grid.selectedItems().isEmpty());
    editor.trigger("Reload");
    EXPECT_EQ(edited(editor.dialog), edited(Editor(table).dialog));
}

TEST(TableEditorDialog, AsksBeforeItDeletes)
{
    Editor editor(table);
    editor.answer = QMessageBox::No;
    editor.trigger("Delete");
    EXPECT_EQ(editor.grid.rowCount(), 3);

    editor.answer = QMessageBox::Yes;
    editor.grid.setCurrentCell(0, 0);
    editor.trigger("Delete");
    editor.trigger("Reset");
    editor.trigger("Delete");
    EXPECT_EQ(edited(editor.dialog), R"({"columns":["gain","level"],"rows":[[3.0,4.5]]})");
    editor.trigger("Delete");
    editor.trigger("Delete");
    EXPECT_EQ(editor.grid.rowCount(), 0);
    EXPECT_EQ(editor.texts, QStringList({"Are you sure to delete row 3?", "Are you sure to delete row 1?",
                                         "Are you sure to delete row 2?", "Are you sure to delete row 1?"}));
}

TEST(TableEditorDialog, SendsWhatIsNoNumberAsZero)
{
    for (const auto& [pText, number] :
         {std::pair("", 0.0), {"abc", 0.0}, {"1,5", 0.0}, {"nan", 0.0}, {"inf", 0.0}, {" 7e1 ", 70.0}})
    {
        Editor editor(table);
        editor.grid.item(0, 0)->setText(pText);
        Json::Value edit;
        editor.dialog.tableGet(edit);
        EXPECT_EQ(edit["rows"][0][0], Json::Value(number)) << pText;
    }
}

TEST(TableEditorDialog, EditsWithTheKeyboardAndIsNotEndedByEnter)
{
    Editor editor(table);
    editor.dialog.show();
    QApplication::setActiveWindow(&editor.dialog);
    editor.grid.setFocus();
    editor.grid.setCurrentCell(0, 0);
    QTest::keyClick(&editor.grid, '8');
    auto pLineEdit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(pLineEdit);
    QTest::keyClicks(pLineEdit, ",x5e");
    EXPECT_FALSE(editor.isTaken(pLineEdit)) << "not yet a number";
    auto pApply = editor.dialog.findChildren<QPushButton*>()[0];
    QTest::mouseClick(pApply, Qt::LeftButton);
    EXPECT_TRUE(editor.dialog.isVisible() && pLineEdit->hasFocus()) << "what is half typed must not be lost";
    EXPECT_EQ(editor.grid.item(0, 0)->text(), "1");
    QTest::keyClicks(pLineEdit, "1");
    EXPECT_TRUE(editor.isTaken(pLineEdit));
    EXPECT_EQ(editor.grid.item(0, 0)->text(), "8.5e1");
    QTest::keyClick(&editor.grid, Qt::Key_Return);
    EXPECT_TRUE(editor.dialog.isVisible());

    QTest::keyClick(&editor.grid, Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), &editor.grid);
    pApply->click();
    EXPECT_EQ(editor.dialog.result(), QDialog::Accepted);
}
