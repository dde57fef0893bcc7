#pragma once

#include "tuning-client/source/abstract-widget.h"

class QStackedWidget;

/// The pages of the current chip, all built at once, in the order of its description.
class CentralWidget : public AbstractWidget
{
    Q_OBJECT

public:
    /// A row of the page catalogue.
    struct Entry
    {
        const char* name;    ///< as chip descriptions give it
        QWidget* (*fMake)(); ///< builds the page without a parent
    };

    /// All pages that the client knows.
    static const QVector<Entry>& catalogue();

    explicit CentralWidget(QWidget* parent);

    /// Shows the page at `index` of the stack.
    void setCurrentIndex(int index);

    QStackedWidget* pStackedWidget;
};
