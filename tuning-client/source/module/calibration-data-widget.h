#pragma once

#include "tuning-client/source/abstract-widget.h"

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
    QPlainTextEdit* pPlainTextEdit; ///< the text of the clicked element

private:
    void elementShow(QTreeWidgetItem* pItem);
    void documentForget();

    QByteArray xml; ///< the file that the tree shows
};
