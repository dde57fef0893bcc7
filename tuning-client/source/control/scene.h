#pragma once

#include <QWidget>

#include <cstdint>

class QLabel;

/// The board's 5 by 5 grid of scene luminance: each cell as bright as the scene there, with the value in it.
class Scene : public QWidget
{
    Q_OBJECT

public:
    explicit Scene(QWidget* parent = nullptr);

    /// The cells come in reading order.
    void setValues(const uint8_t (&values)[25]);

    /// Cells outside the object have a red text.
    void setValues(const uint8_t (&values)[25], const uint8_t (&object)[25]);

private:
    void setCell(int index, uint8_t value, Qt::GlobalColor foreground);

    QLabel* pLabel[25];
};
