#include "tuning-client/source/control/slider-spin-widget.h"

#include "tuning-client/source/control/held-change.h"
#include "tuning-client/source/control/row-names.h"
#include "tuning-client/source/control/spin-box.h"

#include <QClipboard>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>
#include <stdexcept>

namespace
{
/// Has room for its text in bold, so that a row which becomes bold does not move.
class RowLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override { return widened(QLabel::sizeHint()); }
    QSize minimumSizeHint() const override { return widened(QLabel::minimumSizeHint()); }

private:
    QSize widened(const QSize& size) const
    {
        auto bold = font();
        bold.setBold(true);
        return {qMax(size.width(), QFontMetrics(bold).size(0, text()).width()), size.height()};
    }
};
} // namespace

SliderSpinWidget::SliderSpinWidget(const QString& title, QWidget* pParent)
    : QWidget(pParent),
      pLabel(new RowLabel(this)),
      pSlider(new QSlider(Qt::Horizontal, this)),
      pDoubleSpinBox(new QDoubleSpinBox(this)),
      pHeldChange(new HeldChange(this))
{
    auto* pLayout = new QGridLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pLabel, 0, 0);
    pLayout->addWidget(pSlider, 0, 1, 1, 2);
    pLayout->addWidget(pDoubleSpinBox, 0, 3);
    pLayout->setColumnStretch(1, 1);

    pLabel->setObjectName(row::label);
    pDoubleSpinBox->setObjectName(row::value);
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setBuddy(pDoubleSpinBox);
    pLabel->setContextMenuPolicy(Qt::CustomContextMenu);
    pSlider->setTickPosition(QSlider::TicksBelow);
    pSlider->setTickInterval(10);
    pSlider->setTracking(false);
    pSlider->setFocusPolicy(Qt::StrongFocus);
    pDoubleSpinBox->setKeyboardTracking(false);
    pDoubleSpinBox->setFocusPolicy(Qt::StrongFocus);
    setText(title);
    toolTipUpdate();

    pHeldChange->watch(pSlider);
    pHeldChange->watch(pDoubleSpinBox);
    connect(pHeldChange, &HeldChange::committed, this, [this] { emit valueChanged(value()); });
    connect(pLabel, &QLabel::customContextMenuRequested, this, &SliderSpinWidget::contextMenuShow);
    connect(pSlider, &QSlider::valueChanged, this, &SliderSpinWidget::fromSlider);
    connect(pDoubleSpinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &SliderSpinWidget::fromSpinBox);
}

SliderSpinWidget::SliderSpinWidget(const QString& title, double min, double max, int decimals,
                                   std::function<void(double)> fValueChanged, QWidget* pParent)
    : SliderSpinWidget(title, pParent)
{
    setRange(min, max);
    setDecimals(decimals);
    setRange(min, max); // The first call was rounded to the decimals of before.
    connect(this, &SliderSpinWidget::valueChanged, this, std::move(fValueChanged));
}

SliderSpinWidget::~SliderSpinWidget()
{
    // The box commits a half-typed text when it goes.
    for (QObject* pPart : std::initializer_list<QObject*>{pDoubleSpinBox, pSlider, pHeldChange})
        disconnect(pPart, nullptr, this, nullptr);
}

void SliderSpinWidget::setDecimals(int decimals)
{
    {
        const QSignalBlocker blocker(pDoubleSpinBox);
        pDoubleSpinBox->setDecimals(decimals);
    }
    setSingleStep(1 / std::pow(10, decimals));
}

void SliderSpinWidget::setRange(double min, double max)
{
    if (!std::isfinite(min) || !std::isfinite(max) || min > max)
        throw std::logic_error(
            tr("Range error: %1 can't be from %2 to %3").arg(pLabel->text()).arg(min).arg(max).toStdString());
    {
        const QSignalBlocker blocker(pDoubleSpinBox);
        pDoubleSpinBox->setRange(min, max);
    }
    sliderFollow();
    toolTipUpdate();
}

void SliderSpinWidget::setSingleStep(double step)
{
    pDoubleSpinBox->setSingleStep(step);
    toolTipUpdate();
}

void SliderSpinWidget::setText(const QString& title)
{
    pLabel->setText(title);
    pSlider->setAccessibleName(title);
    pDoubleSpinBox->setAccessibleName(title);
}

// QDoubleSpinBox would take NaN for its maximum.
void SliderSpinWidget::setValue(double value)
{
    if (std::isfinite(value))
        pDoubleSpinBox->setValue(value);
}

double SliderSpinWidget::value() const { return pDoubleSpinBox->value(); }

void SliderSpinWidget::readValueSet(double value)
{
    if (!firstValue)
        firstValue = QString::number(value, 'f', pDoubleSpinBox->decimals()).toDouble();
    if (readValue == value)
        return;
    readValue = value;
    toolTipUpdate();
}

void SliderSpinWidget::firstValueForget()
{
    firstValue.reset();
    changeShow();
}

bool SliderSpinWidget::isChanged() const { return firstValue && value() != firstHeld(); }

void SliderSpinWidget::firstValueRestore()
{
    if (firstValue)
        setValue(*firstValue);
}

/// The range may have become another one since, and a value may have been outside of it.
double SliderSpinWidget::firstHeld() const
{
    return qBound(pDoubleSpinBox->minimum(), *firstValue, pDoubleSpinBox->maximum());
}

void SliderSpinWidget::changeShow()
{
    if (pLabel->font().bold() == isChanged())
        return;
    QFont font; // All else is inherited.
    font.setBold(isChanged());
    pLabel->setFont(isChanged() ? font : QFont());
    toolTipUpdate();
}

void SliderSpinWidget::valueStress(bool isStressed)
{
    auto font = pDoubleSpinBox->font();
    font.setBold(isStressed);
    pDoubleSpinBox->setFont(font);
}

bool SliderSpinWidget::isBeingEdited() const
{
    return pHeldChange->isHeld() || pSlider->isSliderDown() || isHalfTyped(pDoubleSpinBox);
}

void SliderSpinWidget::fromSlider(int position)
{
    {
        const QSignalBlocker blocker(pDoubleSpinBox);
        const double lo = pDoubleSpinBox->minimum();
        const double hi = pDoubleSpinBox->maximum();
        const double smin = pSlider->minimum();
        const double smax = pSlider->maximum();
        setValue(lo + ((position - smin) / (smax - smin)) * (hi - lo));
    }
    changeShow();
    pHeldChange->changed();
}

void SliderSpinWidget::fromSpinBox()
{
    sliderFollow();
    pHeldChange->changed();
}

void SliderSpinWidget::sliderFollow()
{
    const QSignalBlocker blocker(pSlider);
    const double lo = pDoubleSpinBox->minimum();
    const double hi = pDoubleSpinBox->maximum();
    const int smin = pSlider->minimum();
    const int smax = pSlider->maximum();
    const double way = (smax - smin) * (value() - lo) / (hi - lo);
    pSlider->setValue(smin + (std::isfinite(way) ? int(std::trunc(way)) : 0));
    changeShow();
}

void SliderSpinWidget::toolTipUpdate()
{
    const auto tip = valueTip(*pDoubleSpinBox, readValue);
    setToolTip(isChanged() ? tip + tr("\nBold name: first read as %1").arg(text(firstHeld())) : tip);
}

void SliderSpinWidget::contextMenuShow(const QPoint& position)
{
    QMenu menu;
    if (readValue && std::isfinite(*readValue))
    {
        auto* pBack =
            menu.addAction(tr("Back to %1 as read").arg(text(*readValue)), this, [this] { setValue(*readValue); });
        pBack->setEnabled(pDoubleSpinBox->isEnabled());
    }
    if (isChanged() && pDoubleSpinBox->isEnabled())
        menu.addAction(tr("Back to %1 as first read").arg(text(firstHeld())), this,
                       &SliderSpinWidget::firstValueRestore);
    emit menuOpening(&menu);
    menu.addAction(tr("Copy value"), this, [this] { QGuiApplication::clipboard()->setText(text(value())); });
    menu.exec(pLabel->mapToGlobal(position));
}

QString SliderSpinWidget::text(double value) const { return pDoubleSpinBox->textFromValue(value); }
