#include "tuning-client/source/control/slider-spin-widget.h"

#include <QClipboard>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>
#include <stdexcept>

namespace
{
bool isSteppingKey(const QEvent* pEvent, bool isSlider)
{
    switch (static_cast<const QKeyEvent*>(pEvent)->key())
    {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        return isSlider;
    default:
        return false;
    }
}
} // namespace

SliderSpinWidget::SliderSpinWidget(const QString& title, QWidget* pParent)
    : QWidget(pParent),
      pLabel(new QLabel(this)),
      pSlider(new QSlider(Qt::Horizontal, this)),
      pDoubleSpinBox(new QDoubleSpinBox(this))
{
    auto* pLayout = new QGridLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pLabel, 0, 0);
    pLayout->addWidget(pSlider, 0, 1, 1, 2);
    pLayout->addWidget(pDoubleSpinBox, 0, 3);
    pLayout->setColumnStretch(1, 1);

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

    pSlider->installEventFilter(this);
    pDoubleSpinBox->installEventFilter(this);
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

void SliderSpinWidget::align(QWidget* pPage)
{
    const auto rows = pPage->findChildren<SliderSpinWidget*>();
    int labelWidth = 0;
    int boxWidth = 0;
    for (const auto* pRow : rows)
    {
        labelWidth = qMax(labelWidth, pRow->pLabel->sizeHint().width());
        boxWidth = qMax(boxWidth, pRow->pDoubleSpinBox->sizeHint().width());
    }
    for (auto* pRow : rows)
    {
        pRow->pLabel->setMinimumWidth(labelWidth);
        pRow->pDoubleSpinBox->setMinimumWidth(boxWidth);
    }
}

void SliderSpinWidget::readValueSet(double value)
{
    if (readValue == value)
        return;
    readValue = value;
    toolTipUpdate();
}

bool SliderSpinWidget::isBeingEdited() const
{
    // A text that was entered stays marked as modified, so it also has to differ from the value.
    return isHeld || pSlider->isSliderDown() ||
           (pDoubleSpinBox->findChild<QLineEdit*>()->isModified() &&
            pDoubleSpinBox->cleanText() != text(pDoubleSpinBox->value()));
}

bool SliderSpinWidget::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    switch (pEvent->type())
    {
    case QEvent::KeyPress:
        if (isSteppingKey(pEvent, pWatched == pSlider))
            isHeld = true;
        break;
    case QEvent::MouseButtonPress:
        isHeld = true;
        break;
    case QEvent::KeyRelease:
        if (!isHeld || static_cast<QKeyEvent*>(pEvent)->isAutoRepeat())
            break;
        commitHeld();
        break;
    case QEvent::MouseButtonRelease:
        // A slider changes its value in the release itself, so the control goes first.
        pWatched->event(pEvent);
        commitHeld();
        return true;
    case QEvent::FocusOut:
    case QEvent::Hide:
        commitHeld();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(pWatched, pEvent);
}

void SliderSpinWidget::changed()
{
    if (isHeld)
        isChangePending = true;
    else
        emit valueChanged(value());
}

void SliderSpinWidget::commitHeld()
{
    isHeld = false;
    if (!isChangePending)
        return;
    isChangePending = false;
    emit valueChanged(value());
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
    changed();
}

void SliderSpinWidget::fromSpinBox()
{
    sliderFollow();
    changed();
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
}

void SliderSpinWidget::toolTipUpdate()
{
    auto tip = tr("Range %1 to %2, step %3")
                   .arg(text(pDoubleSpinBox->minimum()), text(pDoubleSpinBox->maximum()),
                        QString::number(pDoubleSpinBox->singleStep()));
    if (readValue)
        tip += tr("\nAs read: %1").arg(*readValue, 0, 'g', 9);
    setToolTip(tip);
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
    menu.addAction(tr("Copy value"), this, [this] { QGuiApplication::clipboard()->setText(text(value())); });
    menu.exec(pLabel->mapToGlobal(position));
}

QString SliderSpinWidget::text(double value) const { return pDoubleSpinBox->textFromValue(value); }
