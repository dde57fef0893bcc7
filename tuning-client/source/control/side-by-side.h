#pragma once

#include <QObject>
#include <QVector>

class AbstractWidget;
class QScrollArea;
class QWidget;

/// Pages in one row of the grid of the page around them; where its width is too small for that, one below the other.
/// They show themselves whole: it is the page around them that scrolls.
class SideBySide : public QObject
{
    Q_OBJECT

public:
    /// Adds the pages below what stands on the frame's grid. Belongs to the frame.
    SideBySide(AbstractWidget* pFrame, const QVector<QWidget*>& pages);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void unscroll(QWidget* pPage);
    void arrange();

    AbstractWidget* pFrame;
    QScrollArea* pScrollArea;
    QVector<QWidget*> pages;
    int row;
    bool isStacked = false;
};
