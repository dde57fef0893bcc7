#pragma once

#include <QLabel>

/// A label that shows its pixmap at its own size and tells which pixel is under the mouse. QLabel itself would keep a
/// second picture at that size, a gigabyte for a large one; this one draws the part that is seen.
class PictureLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PictureLabel(QWidget* pParent = nullptr);

    /// Whether the picture keeps its proportions in a label of other ones, in the middle of it.
    void setFitted(bool isFitted_);

    /// Where in the label the picture is.
    QRect pictureRect() const;

signals:
    void pointed(const QPoint& pixel);
    /// The mouse is over no pixel.
    void left();
    void resized();

protected:
    void leaveEvent(QEvent* pEvent) override;
    void mouseMoveEvent(QMouseEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    bool isFitted = false;
};
