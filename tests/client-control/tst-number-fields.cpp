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
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace
{
using Enter = std::function<void(QWidget*)>;

const struct
{
    const char* pName;
    void (*fEnter)(QWidget*, const QString&);
} ways[] = {
    {"typed", [](QWidget* pWidget, const QString& text) { QTest::keyClicks(pWidget, text); }},
    {"pasted",
     [](QWidget* pWidget, const QString& text)
     {
         QGuiApplication::clipboard()->setText(text);
         QTest::keyClick(pWidget, Qt::Key_V, Qt::ControlModifier);
     }},
};

template <class Box>
QString boxAfter(Box& box, const Enter& fEnter)
{
    box.setRange(0, 100'000);
    box.setKeyboardTracking(false);
    box.setValue(2);
    box.show();
    box.selectAll();
    fEnter(&box);
    QTest::keyClick(&box, Qt::Key_Return);
    return box.text();
}

/// Opens the editor of the cell, and gives what the cell shows afterwards.
QString cellAfter(QAbstractItemView& view, int column, const Enter& fEnter)
{
    view.window()->show();
    const auto index = view.model()->index(0, column);
    view.setCurrentIndex(index);
    view.edit(index);
    auto* pEditor = view.viewport()->findChild<QLineEdit*>();
    pEditor->selectAll();
    fEnter(pEditor);
    QTest::keyClick(pEditor, Qt::Key_Return);
    QCoreApplication::processEvents();
    return index.data().toString();
}

QString variantAfter(const QVariant& value, const Enter& fEnter)
{
    QTreeWidget tree;
    VariantDelegate delegate(nullptr);
    tree.setColumnCount(2);
    tree.setItemDelegate(&delegate);
    auto* pItem = new QTreeWidgetItem(&tree);
    pItem->setFlags(pItem->flags() | Qt::ItemIsEditable);
    pItem->setData(1, Qt::UserRole, value);
    return cellAfter(tree, 1, fEnter);
}

QString jsonAfter(const char* pDocument, const Enter& fEnter)
{
    t_json::Value document;
    std::istringstream(pDocument) >> document;
    JsonView view(nullptr);
    view.binding(&document, false);
    return cellAfter(view, 1, fEnter);
}

QString tableAfter(const Enter& fEnter)
{
    Json::Value jTable;
    jTable["columns"].append("a");
    jTable["rows"][0].append(2);
    TableEditorDialog dialog(jTable, nullptr);
    return cellAfter(*dialog.findChild<QTableWidget*>(), 0, fEnter);
}

template <class Box>
QString ownBoxAfter(const Enter& fEnter)
{
    Box box;
    return boxAfter(box, fEnter);
}

QString rowAfter(const Enter& fEnter)
{
    SliderSpinWidget row("Row", nullptr);
    row.setDecimals(3);
    row.show();
    return boxAfter(*row.findChild<QDoubleSpinBox*>(), fEnter);
}

struct Register : HexSpinBox
{
    Register() : HexSpinBox(false) {}
};

const struct
{
    const char* pName;
    std::function<QString(const Enter&)> fAfter;
    const char* pExpected; ///< of 1,5 over 2
} fields[] = {
    {"slider row", rowAfter, "1.500"},
    {"spin box", ownBoxAfter<QSpinBox>, "2"},
    {"hexadecimal spin box", ownBoxAfter<Register>, "0x2"},
    {"cell of a table", tableAfter, "1.5"},
    {"double of a tree", [](const auto& fEnter) { return variantAfter(2.0, fEnter); }, "1.5"},
    {"list of a tree", [](const auto& fEnter) { return variantAfter(QStringList("2"), fEnter); }, "1,5"},
    {"double of a document", [](const auto& fEnter) { return jsonAfter("[2.0]", fEnter); }, "1.5"},
    {"text of a document", [](const auto& fEnter) { return jsonAfter("[\"2\"]", fEnter); }, "1,5"},
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
    ways[1].fEnter(pBox, "1,5");
    EXPECT_TRUE(row.isBeingEdited());
}
