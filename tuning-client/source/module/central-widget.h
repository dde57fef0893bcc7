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
        const char* name;                       ///< as chip descriptions give it
        QWidget* (*fMake)(const QString& name); ///< builds the page without a parent
    };

    /// For a page that names itself.
    template <class Page>
    static QWidget* make(const QString&)
    {
        return new Page(nullptr);
    }

    /// For a page that is given the name of its row.
    template <class Page>
    static QWidget* makeNamed(const QString& name)
    {
        return new Page(nullptr, name);
    }

    /// All pages that the client knows.
    static const QVector<Entry>& catalogue();

    explicit CentralWidget(QWidget* parent);

    /// Shows the page at `index` of the stack.
    void setCurrentIndex(int index);

    QStackedWidget* pStackedWidget; ///< each page has its catalogue name as accessible name
};
