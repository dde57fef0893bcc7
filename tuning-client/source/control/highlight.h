#pragma once

#include <QWidget>

/// A frame over a widget that shows where it is, once and for a moment, and then goes by itself. It takes no mouse.
class Highlight : public QWidget
{
    Q_OBJECT

public:
    explicit Highlight(QWidget* pMarked);

protected:
    void paintEvent(QPaintEvent* pEvent) override;
};
