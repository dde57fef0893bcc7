#pragma once

#include "tuning-client/source/shortcut/word-search.h"

#include <QFrame>
#include <QPointer>

class QLineEdit;
class QListView;
class QStringListModel;

/// A box over the window with a line to type in and a list of the pages and controls that it finds, such as "White
/// Balance › White Balance Gains › Red". It closes with the choice, with Escape, or with a click beside it, and the
/// focus is where it was.
class FinderBox : public QFrame
{
    Q_OBJECT

public:
    /// Names come from the pages themselves: accessible names, titles of groups, tabs and inner pages.
    FinderBox(QWidget* pWindow, const QVector<QWidget*>& pages);

    void open();

signals:
    /// `page` is its place among the pages; a page as such has no control.
    void chosen(int page, QWidget* pControl);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void hideEvent(QHideEvent* pEvent) override;

private:
    struct Entry
    {
        int page;
        bool isPage;
        QPointer<QWidget> pControl;
        QString text;
    };

    void pageAdd(int page, QWidget* pPage);
    void entryAdd(int page, QWidget* pControl, const QStringList& path);
    void find();
    void choose(int row);

    QVector<Entry> entries;
    QVector<int> found; ///< entries, as they are listed
    shortcut::WordSearch search;
    QLineEdit* pLineEdit;
    QListView* pListView;
    QStringListModel* pModel;
};
