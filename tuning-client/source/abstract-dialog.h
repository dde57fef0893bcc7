#pragma once

#include <QDialog>

class QGridLayout;

/// Base of the dialogs: a scrolling grid to put controls in.
class AbstractDialog : public QDialog
{
    Q_OBJECT

public:
    /// With `isSetupUi` the class lays itself out, and the base builds nothing.
    AbstractDialog(QWidget* pParent, Qt::WindowFlags flags, bool isSetupUi);

protected:
    QGridLayout* pGridLayoutScrollArea = nullptr;
};
