#pragma once

#include <QSize>
#include <QWidget>

/// Shows a widget as large as there is room at one ratio of its sides.
class KeepRatio : public QWidget
{
    Q_OBJECT

public:
    /// Takes `pContent`, whose sides get the ratio of those of `ratio`.
    KeepRatio(QWidget* pContent, const QSize& ratio, QWidget* pParent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    QWidget* pContent;
    QSize ratio;
};
