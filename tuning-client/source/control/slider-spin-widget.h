#pragma once

#include <QWidget>

#include <functional>
#include <optional>

class HeldChange;
class QDoubleSpinBox;
class QLabel;
class QMenu;
class QSlider;

/// The row of nearly every page: a label, a slider and a spin box that show one value. The spin box is the master; the
/// slider has 100 positions whatever the range. The label is bold while the value is not the one that was read first.
class SliderSpinWidget : public QWidget
{
    Q_OBJECT

public:
    SliderSpinWidget(const QString& title, QWidget* pParent);
    SliderSpinWidget(const QString& title, double min, double max, int decimals,
                     std::function<void(double)> fValueChanged, QWidget* pParent);

    ~SliderSpinWidget() override;

    /// The step becomes 1 / 10^decimals.
    void setDecimals(int decimals);

    /// The value is held to the range silently. Throws std::logic_error for a range that is not finite or inverted.
    void setRange(double min, double max);

    void setSingleStep(double step);
    void setText(const QString& text);

    /// Emits `valueChanged` if that changes the value. A value that is not finite leaves the last one.
    void setValue(double value);

    double value() const;

    /// Remembers `value` as what the board reported, for the tool tip and the label's menu.
    void readValueSet(double value);

    /// A first read begins: the next value that the board reports is the first one.
    void firstValueForget();

    /// Whether the value is another one than the board reported first.
    bool isChanged() const;

    /// Sets the value that the board reported first, as if the user did.
    void firstValueRestore();

    /// Sets the value in bold, or back: for a change that is to be seen though the user did not make it.
    void valueStress(bool isStressed);

    /// The user holds the slider or a key down, or the spin box holds half-typed text: not the moment to show another
    /// value.
    bool isBeingEdited() const;

signals:
    /// Once for each committed change: a slider released, a text entered, a held key let go.
    void valueChanged(double value);

    /// The label's menu is about to be shown; entries added now stand after those that change this row's value.
    void menuOpening(QMenu* pMenu);

private:
    void fromSlider(int position);
    void fromSpinBox();
    void sliderFollow();
    void toolTipUpdate();
    void changeShow();
    double firstHeld() const;
    void contextMenuShow(const QPoint& position);
    QString text(double value) const;

    QLabel* pLabel;
    QSlider* pSlider;
    QDoubleSpinBox* pDoubleSpinBox;
    HeldChange* pHeldChange;
    std::optional<double> readValue;
    std::optional<double> firstValue; ///< rounded as the box shows it
};
