#include "tuning-client/source/shortcut/form.h"

#include "tuning-client/source/abstract-widget.h"
#include "tuning-client/source/control/held-change.h"
#include "tuning-client/source/control/row-names.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace
{
/// Greys a label with its control.
class LabelFollow : public QObject
{
public:
    LabelFollow(QLabel* pLabel_, QWidget* pBuddy) : QObject(pLabel_), pLabel(pLabel_)
    {
        pBuddy->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::EnabledChange)
            pLabel->setEnabled(static_cast<QWidget*>(pWatched)->isEnabled());
        return QObject::eventFilter(pWatched, pEvent);
    }

private:
    QLabel* pLabel;
};
} // namespace

namespace shortcut
{
Form::Form(AbstractWidget* pPage_, QGridLayout* pGrid_, Changed fChanged_)
    : pPage(pPage_), pGrid(pGrid_), fChanged(std::move(fChanged_))
{
    pGrid->setColumnStretch(columns - 1, 1);
}

int Form::next() const
{
    // A grid without items already counts one row.
    return pGrid->count() == 0 ? 0 : pGrid->rowCount();
}

template <class Sender, class Signal>
void Form::connectChanged(Sender* pSender, Signal signal, QObject* pControl)
{
    if (fChanged)
        QObject::connect(pSender, signal, pPage,
                         [pChangedPage = pPage, fRun = fChanged, pControl]
                         { pChangedPage->writeGuarded([&] { fRun(pControl); }); });
}

void Form::label(const QString& text, int line, QWidget* pBuddy)
{
    auto* pLabel = new QLabel(text);
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setObjectName(row::label);
    pLabel->setBuddy(pBuddy);
    new LabelFollow(pLabel, pBuddy);
    pGrid->addWidget(pLabel, line, 0);
}

/// Several controls behind one label are told apart by their number.
void Form::name(QWidget* pControl, const QString& text, int index, int count)
{
    const auto full = text.isEmpty() && pGroupBox ? pGroupBox->title() : text;
    pControl->setAccessibleName(count > 1 ? QString("%1 %2").arg(full).arg(index) : full);
}

SliderSpinWidget* Form::slider(const QString& text, double min, double max, int decimals)
{
    auto* pSlider = new SliderSpinWidget(text, nullptr);
    if (decimals != ownDecimals)
        pSlider->setDecimals(decimals);
    pSlider->setRange(min, max);
    wide(pSlider);
    connectChanged(pSlider, &SliderSpinWidget::valueChanged, pSlider);
    return pSlider;
}

QCheckBox* Form::checkBox(const QString& text)
{
    auto* pCheckBox = new QCheckBox;
    labelled(text, pCheckBox);
    connectChanged(pCheckBox, &QCheckBox::toggled, pCheckBox);
    return pCheckBox;
}

QCheckBox* Form::textCheckBox(const QString& text)
{
    auto* pCheckBox = new QCheckBox(text);
    wide(pCheckBox);
    connectChanged(pCheckBox, &QCheckBox::toggled, pCheckBox);
    return pCheckBox;
}

QComboBox* Form::comboBox(const QString& text, const ComboItems& items)
{
    QComboBox* pComboBox = nullptr;
    comboBoxes(text, {&pComboBox}, items);
    return pComboBox;
}

void Form::comboBoxes(const QString& text, std::initializer_list<QComboBox**> boxes, const ComboItems& items)
{
    const int line = next();
    int index = 0;
    for (auto** ppBox : boxes)
    {
        auto* pComboBox = *ppBox = new QComboBox;
        NoSignals::refill(pComboBox, items);
        name(pComboBox, text, index, int(boxes.size()));
        // A box of its own has its natural width, and does not widen the column for the rows around it.
        if (boxes.size() == 1)
            pGrid->addWidget(pComboBox, line, 1, 1, columns - 1, Qt::AlignLeft);
        else
            pGrid->addWidget(pComboBox, line, 1 + index++);
        connectChanged(pComboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), pComboBox);
    }
    label(text, line, **boxes.begin());
}

template <class Box>
void Form::boxPlace(Box* pBox, int line, int column)
{
    pBox->setObjectName(row::value);
    pBox->setKeyboardTracking(false);
    pBox->setToolTip(valueTip(*pBox));
    pGrid->addWidget(pBox, line, column);
    auto* pHeldChange = new HeldChange(pBox);
    pHeldChange->watch(pBox);
    using Value = decltype(pBox->value());
    QObject::connect(pBox, QOverload<Value>::of(&Box::valueChanged), pHeldChange, &HeldChange::changed);
    connectChanged(pHeldChange, &HeldChange::committed, pBox);
}

template <class Box, class Configure>
QVector<Box*> Form::boxesAdd(const QString& text, std::initializer_list<Box**> boxes, int perRow, Configure configure)
{
    QVector<Box*> made;
    const int line = next();
    // Without a label the boxes fill the group from its edge.
    const int column = text.isEmpty() ? 0 : 1;
    for (auto** ppBox : boxes)
    {
        auto* pBox = *ppBox = new Box;
        configure(pBox);
        name(pBox, text, made.size(), int(boxes.size()));
        boxPlace(pBox, line + made.size() / perRow, column + made.size() % perRow);
        made.append(pBox);
    }
    if (!text.isEmpty())
        label(text, line, made.first());
    return made;
}

QVector<QDoubleSpinBox*> Form::spinBoxes(const QString& text, Boxes boxes, double min, double max, int decimals,
                                         double step, int perRow)
{
    return boxesAdd(text, boxes, perRow,
                    [=](QDoubleSpinBox* pBox)
                    {
                        pBox->setDecimals(decimals);
                        pBox->setRange(min, max);
                        pBox->setSingleStep(step);
                    });
}

QVector<QSpinBox*> Form::spinBoxes(const QString& text, std::initializer_list<QSpinBox**> boxes, int min, int max,
                                   int perRow)
{
    return boxesAdd(text, boxes, perRow, [=](QSpinBox* pBox) { pBox->setRange(min, max); });
}

template <class Box>
Box* Form::boxBeside(const QString& accessibleName, int column, int min, int max)
{
    auto* pBox = new Box;
    pBox->setRange(min, max);
    pBox->setAccessibleName(accessibleName);
    boxPlace(pBox, pGrid->rowCount() - 1, column);
    return pBox;
}

QSpinBox* Form::spinBoxBeside(const QString& accessibleName, int column, int min, int max)
{
    return boxBeside<QSpinBox>(accessibleName, column, min, max);
}

QDoubleSpinBox* Form::doubleSpinBoxBeside(const QString& accessibleName, int column, int min, int max)
{
    return boxBeside<QDoubleSpinBox>(accessibleName, column, min, max);
}

void Form::heads(const QStringList& texts)
{
    const int line = next();
    for (int i = 0; i < texts.size(); ++i)
        if (!texts[i].isEmpty())
            pGrid->addWidget(new QLabel(texts[i]), line, i, i == 0 ? Qt::AlignLeft : Qt::AlignHCenter);
}

QButtonGroup* Form::radioGroup(const QString& title, const ComboItems& items)
{
    auto* pGroup = radioBox(title, items);
    wide(boxOf(pGroup));
    connectChanged(pGroup, &QButtonGroup::idClicked, pGroup);
    return pGroup;
}

Form Form::group(const QString& title, bool isCheckable)
{
    auto* pBox = new QGroupBox(title);
    wide(pBox);
    if (isCheckable)
    {
        pBox->setCheckable(true);
        connectChanged(pBox, &QGroupBox::toggled, pBox);
    }
    Form form(pPage, new QGridLayout(pBox), fChanged);
    form.pGroupBox = pBox;
    return form;
}

void Form::labelled(const QString& text, QWidget* pControl, const QString& behind)
{
    const int line = next();
    label(text, line, pControl);
    name(pControl, text, 0, 1);
    pGrid->addWidget(pControl, line, 1, 1, behind.isEmpty() ? columns - 1 : 1, Qt::AlignLeft);
    if (!behind.isEmpty())
        pGrid->addWidget(new QLabel(behind), line, 2, 1, columns - 2);
}

void Form::wide(QWidget* pWidget) { pGrid->addWidget(pWidget, next(), 0, 1, columns); }

void Form::stretch() { pGrid->setRowStretch(next(), 1); }

QLabel* labelOf(const QWidget* pControl)
{
    for (auto* pLabel : pControl->parentWidget()->findChildren<QLabel*>())
        if (pLabel->buddy() == pControl)
            return pLabel;
    return nullptr;
}
} // namespace shortcut
