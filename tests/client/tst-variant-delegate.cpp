#include "tests/support/editing.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/control/variant-delegate.h"

namespace
{
class VariantDelegateTest : public testing::Test
{
protected:
    VariantDelegateTest()
    {
        tree.setColumnCount(2);
        tree.setItemDelegate(&delegate);
        pItem = new QTreeWidgetItem(&tree);
        pItem->setFlags(pItem->flags() | Qt::ItemIsEditable);
        tree.show();
    }

    ~VariantDelegateTest() override { tree.setItemDelegate(nullptr); }

    QLineEdit* edit(const QVariant& value, int column = 1)
    {
        pItem->setText(1, VariantDelegate::displayText(value));
        // An equal value of another type would not be taken.
        pItem->setData(1, Qt::UserRole, QVariant());
        pItem->setData(1, Qt::UserRole, value);
        tree.editItem(pItem, column);
        for (auto* pEditor : tree.viewport()->findChildren<QLineEdit*>())
        {
            if (pEditor->isVisible())
                return pEditor;
        }
        return nullptr;
    }

    /// What the value is after the user has typed a text over it. Escape leaves an editor that stays open.
    QVariant typed(const QVariant& value, const QString& text)
    {
        auto* pEditor = edit(value);
        const bool isOpen = typeOver(pEditor, text);
        const auto result = pItem->data(1, Qt::UserRole);
        EXPECT_EQ(isOpen, result == value);
        EXPECT_EQ(pItem->text(1), VariantDelegate::displayText(result));
        return result;
    }

    VariantDelegate delegate{nullptr};
    QTreeWidget tree;
    QTreeWidgetItem* pItem;
};
} // namespace

TEST_F(VariantDelegateTest, TypedTextBecomesAValueOfTheSameType)
{
    const QDate date(2022, 11, 16);
    const std::tuple<QVariant, const char*, QVariant> cases[] = {
        {true, "FALSE", false},
        {true, "maybe", true},
        {5, "-7", -7},
        {5, "99999999999", 5},
        {5, "", 5},
        {5u, "-7", 7u},
        {5ull, "-7", 7ull},
        {5ll, "-9223372036854775808", std::numeric_limits<qlonglong>::min()},
        {5ull, "18446744073709551615", std::numeric_limits<qulonglong>::max()},
        {0.5, "1e-3", 0.001},
        {0.5, "1,5", 1.5},
        {0.5, "much", 0.5},
        {QChar('a'), "b", QChar('b')},
        {QChar('a'), "", QChar('a')},
        {"old", "new, ä", "new, ä"},
        {QStringList{"a"}, "b,c d,", QStringList({"b", "c d", ""})},
        {QByteArray("a"), "b€c", QByteArray("bc")},
        {date, "2023-02-28", QDate(2023, 2, 28)},
        {date, "2022-13-01", date},
        {QTime(1, 2, 3), "23:59:58", QTime(23, 59, 58)},
        {QDateTime(date, QTime(1, 2, 3)), "2023-02-28T04:05:06", QDateTime(QDate(2023, 2, 28), QTime(4, 5, 6))},
        {QDateTime(date, QTime(1, 2, 3)), "2023-02-30T04:05:06", QDateTime(date, QTime(1, 2, 3))},
        {QRect(1, 2, 3, 4), "(-5,6,70,80)", QRect(-5, 6, 70, 80)},
        {QRect(1, 2, 3, 4), "(1,2,3)", QRect(1, 2, 3, 4)},
        {QRect(1, 2, 3, 4), "(2147483647,0,2147483647,1)", QRect(1, 2, 3, 4)},
        {QSize(1, 2), "(30,40)", QSize(30, 40)},
        {QPoint(1, 2), "(-3,4)", QPoint(-3, 4)},
        {QColor(1, 2, 3, 4), "(99999999999,300,7,8)", QColor(255, 255, 7, 8)},
        {QColor(1, 2, 3, 4), "(1,2,3)", QColor(1, 2, 3, 4)},
    };
    for (const auto& [old, text, expected] : cases)
    {
        SCOPED_TRACE(std::string(old.typeName()) + " <- " + text);
        const auto result = typed(old, QString::fromUtf8(text));
        EXPECT_EQ(result.userType(), old.userType());
        EXPECT_EQ(result, expected) << VariantDelegate::displayText(result).toStdString();
    }
}

TEST_F(VariantDelegateTest, ShowsValuesAsTextAndEditsThoseOfSupportedTypesInColumn1)
{
    const QDate date(2022, 11, 6);
    const std::pair<QVariant, const char*> cases[] = {{QVariant(), "<Invalid>"},
                                                      {QVariantMap{{"a", 1}}, "<QVariantMap>"},
                                                      {QLine(1, 2, 3, 4), "<QLine>"},
                                                      {true, "true"},
                                                      {"a<b>", "a<b>"},
                                                      {QStringList({"a", "b c"}), "a,b c"},
                                                      {date, "2022-11-06"},
                                                      {QTime(1, 2, 3, 4), "01:02:03"},
                                                      {QDateTime(date, QTime(1, 2, 3)), "2022-11-06T01:02:03"},
                                                      {QRect(1, 2, 30, 40), "(1,2,30,40)"},
                                                      {QSize(3, 4), "(3,4)"},
                                                      {QPoint(-3, 4), "(-3,4)"},
                                                      {QColor(1, 2, 3, 4), "(1,2,3,4)"}};
    for (const auto& [value, text] : cases)
    {
        EXPECT_EQ(VariantDelegate::displayText(value), text);
        const bool isEdited = *text != '<';
        EXPECT_EQ(VariantDelegate::isSupportedType(value.userType()), isEdited) << text;
        auto* pEditor = edit(value);
        ASSERT_EQ(pEditor != nullptr, isEdited) << text;
        if (!pEditor)
            continue;
        EXPECT_EQ(pEditor->text(), text);
        EXPECT_FALSE(pEditor->toolTip().contains("<b>"));
        // A text that was not touched may be less than the value.
        QTest::keyClick(pEditor, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(pItem->data(1, Qt::UserRole), value);
    }
    EXPECT_EQ(edit(5, 0), nullptr);
}

TEST_F(VariantDelegateTest, WhatCannotBeEditedIsPaintedAsDisabled)
{
    const auto picture = [&](int column, const QVariant& value)
    {
        pItem->setData(column, Qt::UserRole, value);
        pItem->setText(column, "text");
        QImage image(80, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.initFrom(&tree);
        option.rect = image.rect();
        delegate.paint(&painter, option, tree.model()->index(0, column));
        return image;
    };
    EXPECT_NE(picture(1, QVariant()), picture(1, "value"));
    EXPECT_EQ(picture(0, QVariant()), picture(1, "value"));
}
