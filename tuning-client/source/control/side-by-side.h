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
    /// Fills the grid of the frame, to which it belongs, with the pages.
    SideBySide(AbstractWidget* pFrame, const QVector<QWidget*>& pages);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void unscroll(QWidget* pPage);
    void arrange();

    AbstractWidget* pFrame;
    QScrollArea* pScrollArea;
    QVector<QWidget*> pages;
    bool isStacked = false;
};
