#include "tuning-client/source/table-editor-dialog.h"

#include "tests/support/modals.h"
#include "tests/support/qt-main.h"
#include "tuning-common/source/json-app.h"

#include <QAction>
#include <QTableWidget>
#include <QTest>

namespace
{
std::string edited(const TableEditorDialog& dialog)
{
    Json::Value table;
    dialog.tableGet(table);
    return t_common::JsonApp::toString(table, "");
}

struct Editor
{
    explicit Editor(const std::string& text)
        : dialog(t_common::JsonApp::fromString("[" + text + "]")[0], nullptr), grid(*dialog.findChild<QTableWidget*>())
    {
    }

    void trigger(const QString& text)
    {
        for (auto pAction : dialog.findChildren<QAction*>())
        {
            if (pAction->text() == text)
            {
                EXPECT_FALSE(pAction->icon().isNull());
                return pAction->trigger();
            }
        }
        ADD_FAILURE() << text.toStdString();
    }

    QStringList warnings;
    QMessageBox::StandardButton answer = QMessageBox::Ok;
    Modals boxes{[this](QDialog& opened)
                 {
                     auto& box = dynamic_cast<QMessageBox&>(opened);
                     EXPECT_EQ(box.windowTitle(), "Warning");
                     EXPECT_EQ(box.textFormat(), Qt::PlainText);
                     warnings << box.text();
                     box.button(answer)->click();
                 }};
    TableEditorDialog dialog;
    QTableWidget& grid;
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
        {R"({"columns":["a"],"rows":[]})", R"({"columns":["a"],"rows":null})"},
        {R"({"columns":["a"]})", R"({"columns":["a"],"rows":null})"},
        {R"({"rows":[[1],[2]]})", R"({"columns":null,"rows":[[],[]]})"},
        {"null", R"({"columns":null,"rows":null})"},
    };
    for (const auto& [text, expected] : cases)
    {
        const Editor editor(text);
        EXPECT_EQ(edited(editor.dialog), expected);
        EXPECT_EQ(editor.warnings, QStringList());
    }
}

TEST(TableEditorDialog, WarnsOfWrongTypesAndShowsWhatItHadRead)
{
    struct
    {
        std::string text;
        int columns;
        int rows;
    } const cases[] = {
        {"[]", 0, 0},
        {"\"text\"", 0, 0},
        {"7", 0, 0},
        {R"({"columns":{"a":1},"rows":[]})", 0, 0},
        {R"({"columns":["a",["b"]],"rows":[[1]]})", 0, 0},
        {R"({"columns":["a","b"],"rows":{"x":[1]}})", 2, 0},
        {R"({"columns":["a","b"],"rows":[[1,2],3,[4,5]]})", 2, 2},
        {R"({"columns":["a","b"],"rows":[[1,2],[3,"four"],[4,5]]})", 2, 2},
        {R"({"columns":["a","b"],"rows":[{"a":1}]})", 2, 1},
    };
    for (const auto& oneCase : cases)
    {
        const Editor editor(oneCase.text);
        EXPECT_EQ(editor.warnings.size(), 1) << oneCase.text;
        EXPECT_FALSE(editor.warnings.value(0).isEmpty());
        EXPECT_EQ(editor.grid.columnCount(), oneCase.columns) << oneCase.text;
        EXPECT_EQ(editor.grid.rowCount(), oneCase.rows) << oneCase.text;
        edited(editor.dialog);
    }
}

TEST(TableEditorDialog, RefusesTablesBeyondTheLimits)
{
    const auto many = [](int count, const QString& element)
    { return ("[" + QStringList(QVector<QString>(count, element).toList()).join(",") + "]").toStdString(); };
    const auto boxesOf = [](const std::string& columns, const std::string& rows)
    { return Editor("{\"columns\":" + columns + ",\"rows\":" + rows + "}").warnings; };
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
    EXPECT_EQ(editor.warnings, QStringList({"Are you sure to delete row 3?", "Are you sure to delete row 1?",
                                            "Are you sure to delete row 2?", "Are you sure to delete row 1?"}));
}

TEST(TableEditorDialog, SendsWhatIsNoNumberAsZero)
{
    Editor editor(table);
    const char* const texts[] = {"", "abc", "1,5", "nan", "inf", " 7e1 "};
    for (auto pText : texts)
    {
        editor.grid.item(0, 0)->setText(pText);
        Json::Value edit;
        editor.dialog.tableGet(edit);
        EXPECT_EQ(edit["rows"][0][0], Json::Value(pText == texts[5] ? 70.0 : 0.0)) << pText;
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
    QTest::keyClicks(pLineEdit, ",x.5");
    QTest::keyClick(pLineEdit, Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return editor.grid.item(0, 0)->text() == "8.5"; }));
    QTest::keyClick(&editor.grid, Qt::Key_Return);
    EXPECT_TRUE(editor.dialog.isVisible());

    QTest::keyClick(&editor.grid, Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), &editor.grid);
    for (auto pButton : editor.dialog.findChildren<QPushButton*>())
        if (pButton->text() == "Apply")
            pButton->click();
    EXPECT_EQ(editor.dialog.result(), QDialog::Accepted);
}
