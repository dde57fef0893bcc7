#pragma once

#include "tuning-client/source/abstract-widget.h"

class QComboBox;
class QStackedWidget;

/// A page made of sub-pages that are chosen in a combo box. Each sub-page reads for itself when it is shown.
class MultiWidget : public AbstractWidget
{
    Q_OBJECT

public:
    MultiWidget(QWidget* pParent, const QString& name);

    void addWidget(QWidget* pWidget, const QString& name);

    QComboBox* pComboBox;
    QStackedWidget* pStackedWidget;
};
