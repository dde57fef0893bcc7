#include "tests/support/qt-main.h"
#include "tuning-client/source/control/json-view.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/control/variant-delegate.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/table-editor-dialog.h"
#include "tuning-json/source/value.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <sstream>

namespace
{
/// The editor that is open in the view.
QLineEdit* opened(QAbstractItemView& view, const QModelIndex& index)
{
    view.setCurrentIndex(index);
    view.edit(index);
    for (auto* pEditor : view.viewport()->findChildren<QLineEdit*>())
        if (pEditor->isVisible())
            return pEditor;
    return nullptr;
}

const struct
{
    const char* pName;
    void (*fEnter)(QWidget*, const QString&);
} ways[] = {
    {"typed", [](QWidget* pWidget, const QString& text) { QTest::keyClicks(pWidget, text); }},
    {"typed with the keypad",
     [](QWidget* pWidget, const QString& text)
     {
         for (const auto character : text)
         {
             const auto key = character == ',' ? Qt::Key_Period : Qt::Key(character.unicode());
             QKeyEvent event(QEvent::KeyPress, key, Qt::KeypadModifier, character);
             QApplication::sendEvent(pWidget, &event);
         }
     }},
    {"composed",
     [](QWidget* pWidget, const QString& text)
     {
         for (const auto character : text)
         {
             QInputMethodEvent event;
             event.setCommitString(character);
             QApplication::sendEvent(pWidget, &event);
         }
     }},
    {"pasted",
     [](QWidget* pWidget, const QString& text)
     {
         QGuiApplication::clipboard()->setText(text);
         QTest::keyClick(pWidget, Qt::Key_V, Qt::ControlModifier);
     }},
};

template <class Box>
std::string boxAfter(Box& box, const std::function<void(QWidget*)>& fEnter)
{
    box.setRange(0, 100'000);
    box.setKeyboardTracking(false);
    box.setValue(2);
    box.show();
    box.selectAll();
    fEnter(&box);
    QTest::keyClick(&box, Qt::Key_Return);
    return box.text().toStdString();
}

/// What stands in a cell of a delegate's tree afterwards.
std::string variantAfter(const QVariant& value, const std::function<void(QWidget*)>& fEnter)
{
    QTreeWidget tree;
    VariantDelegate delegate(nullptr);
    tree.setColumnCount(2);
    tree.setItemDelegate(&delegate);
    auto* pItem = new QTreeWidgetItem(&tree);
    pItem->setFlags(pItem->flags() | Qt::ItemIsEditable);
    pItem->setData(1, Qt::UserRole, value);
    tree.show();
    auto* pEditor = opened(tree, tree.model()->index(0, 1));
    pEditor->selectAll();
    fEnter(pEditor);
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCoreApplication::processEvents();
    return VariantDelegate::displayText(pItem->data(1, Qt::UserRole)).toStdString();
}

std::string jsonAfter(const std::string& value, const std::function<void(QWidget*)>& fEnter)
{
    t_json::Value document;
    std::istringstream("[" + value + "]") >> document;
    JsonView view(nullptr);
    view.binding(&document, false);
    view.show();
    auto* pEditor = opened(view, view.model()->index(0, 1));
    pEditor->selectAll();
    fEnter(pEditor);
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCoreApplication::processEvents();
    std::ostringstream stream;
    stream << document;
    return stream.str();
}

const struct
{
    const char* pName;
    std::function<std::string(const std::function<void(QWidget*)>&)> fAfter;
    const char* pExpected; ///< of 1,5 over 2
} fields[] = {
    {"double spin box",
     [](const auto& fEnter)
     {
         QDoubleSpinBox box;
         return boxAfter(box, fEnter);
     },
     "1.50"},
    {"slider row",
     [](const auto& fEnter)
     {
         SliderSpinWidget row("Row", nullptr);
         row.setDecimals(3);
         row.show();
         return boxAfter(*row.findChild<QDoubleSpinBox*>(), fEnter);
     },
     "1.500"},
    {"spin box",
     [](const auto& fEnter)
     {
         QSpinBox box;
         return boxAfter(box, fEnter);
     },
     "2"},
    {"hexadecimal spin box",
     [](const auto& fEnter)
     {
         HexSpinBox box(false);
         return boxAfter(box, fEnter);
     },
     "0x2"},
    {"cell of a table",
     [](const auto& fEnter)
     {
         Json::Value jTable;
         jTable["columns"].append("a");
         jTable["rows"][0].append(2);
         TableEditorDialog dialog(jTable, nullptr);
         dialog.show();
         auto& grid = *dialog.findChild<QTableWidget*>();
         auto* pEditor = opened(grid, grid.model()->index(0, 0));
         pEditor->selectAll();
         fEnter(pEditor);
         QTest::keyClick(pEditor, Qt::Key_Return);
         QCoreApplication::processEvents();
         return grid.item(0, 0)->text().toStdString();
     },
     "1.5"},
    {"double of a tree", [](const auto& fEnter) { return variantAfter(2.0, fEnter); }, "1.5"},
    {"list of a tree", [](const auto& fEnter) { return variantAfter(QStringList("2"), fEnter); }, "1,5"},
    {"double of a document", [](const auto& fEnter) { return jsonAfter("2.0", fEnter); }, "[1.5]"},
    {"text of a document", [](const auto& fEnter) { return jsonAfter("\"2\"", fEnter); }, "[\"1,5\"]"},
    {"line of text",
     [](const auto& fEnter)
     {
         QLineEdit line;
         line.show();
         fEnter(&line);
         return line.text().toStdString();
     },
     "1,5"},
};
} // namespace

TEST(NumberFieldsTest, ACommaIsAPointWhereNumbersAreEntered)
{
    for (const auto& field : fields)
        for (const auto& way : ways)
            EXPECT_EQ(field.fAfter([&](QWidget* pWidget) { way.fEnter(pWidget, "1,5"); }), field.pExpected)
                << field.pName << " " << way.pName;
}

TEST(NumberFieldsTest, APastedNumberCountsAsTyped)
{
    SliderSpinWidget row("Row", nullptr);
    row.show();
    auto* pBox = row.findChild<QDoubleSpinBox*>();
    pBox->selectAll();
    ways[3].fEnter(pBox, "1,5");
    EXPECT_TRUE(row.isBeingEdited());
}
