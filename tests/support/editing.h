#pragma once

#include "tests/support/qt-main.h"

/// Types a text over the one in the editor of a cell and confirms it. Whether the editor has stayed open; Escape leaves
/// it then.
inline bool typeOver(QLineEdit* pLineEdit, const QString& text)
{
    pLineEdit->selectAll();
    QTest::keyClick(pLineEdit, Qt::Key_Delete);
    for (const auto character : text)
        pLineEdit->insert(character);
    QTest::keyClick(pLineEdit, Qt::Key_Return);
    // The editor commits with the next turn of the event loop.
    QCoreApplication::processEvents();
    const bool isOpen = pLineEdit->isVisible();
    QTest::keyClick(pLineEdit, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return isOpen;
}

/// Types a text over the one in the field, and does not enter it.
inline void typeHalf(QWidget* pField, const QString& text)
{
    pField->setFocus();
    QMetaObject::invokeMethod(pField, "selectAll");
    QTest::keyClicks(pField, text);
}

/// Enters a number into a row's box.
inline void type(QWidget* pRow, const char* text)
{
    auto* pBox = pRow->findChild<QDoubleSpinBox*>();
    typeHalf(pBox, text);
    QTest::keyClick(pBox, Qt::Key_Return);
}
