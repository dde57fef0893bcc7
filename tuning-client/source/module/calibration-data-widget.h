#pragma once

#include "tuning-client/source/abstract-widget.h"

#include <QDomElement>

class DomTreeWidget;
class QPlainTextEdit;
class QTreeWidgetItem;

/// "Calibration Data": the calibration that the board is using, fetched afresh with each read. Nothing goes back.
class CalibrationDataWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit CalibrationDataWidget(QWidget* pParent);

    void updateStatus() override;

    DomTreeWidget* pDomTreeWidgetAttribute;
    DomTreeWidget* pDomTreeWidgetElement;
    QPlainTextEdit* pPlainTextEdit; ///< the text of the current element

private:
    void elementForget();
    void elementShow(QTreeWidgetItem* pItem);
    void documentForget();

    QDomElement elementShown; ///< whose attributes and text are shown
    QByteArray xml;           ///< the file that the tree shows
};
