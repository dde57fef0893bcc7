#include "tuning-client/source/module/ca-widget.h"

#include "tuning-client/source/control/side-by-side.h"
#include "tuning-client/source/module/ca-channel-widget.h"
#include "tuning-client/source/module/dci-widget.h"
#include "tuning-client/source/shortcut/radio-box.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>

using rest::Ca;
using rest::Dci;

CaWidget::CaWidget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, name),
      pCheckBoxEnable(new QCheckBox(tr("Enable Color Adjustment && Dynamic Contrast Improvement"))),
      pCaChannelWidget(new CaChannelWidegt(nullptr)),
      pDciChannelWidget(new DciWidget(nullptr)),
      channels{pCaChannelWidget, pDciChannelWidget}
{
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0);
    choiceBuild();
    pGridLayoutScrollArea->addWidget(pGroupBox, 1, 0);
    // Whole, since a page that is disabled does not scroll. Its plot takes the height that is left.
    for (auto* pChannel : qAsConst(channels))
        new SideBySide(this, {pChannel});
    for (int row = 0; row < pGridLayoutScrollArea->rowCount(); ++row)
        pGridLayoutScrollArea->setRowStretch(row, 0);
    channelShow(true);
    connectSwitch(
        pCheckBoxEnable,
        [this](bool isEnable)
        {
            Ca().enableSet(isEnable);
            // Lit by now, whatever the second module answers.
            if (pRadioButtonCa->isChecked())
                ledShow(isEnable);
            Dci().enableSet(isEnable);
        },
        [this](bool isFree)
        {
            channelsEnable(isFree);
            switchFollow(!isFree);
        },
        shortcut::Grey::Always);
}

void CaWidget::choiceBuild()
{
    pButtonGroup =
        shortcut::radioBox(QString(), {{tr("Color Adjustment"), 0}, {tr("Dynamic Contrast Improvement"), 1}}, 2);
    pGroupBox = shortcut::boxOf(pButtonGroup);
    pRadioButtonCa = shortcut::radioOf(pButtonGroup, 0);
    pRadioButtonDci = shortcut::radioOf(pButtonGroup, 1);
    connectGuarded(pRadioButtonCa, &QRadioButton::toggled, [this](bool isCa) { channelShow(isCa); });
    connectGuarded(pRadioButtonDci, &QRadioButton::toggled, [this](bool isDci) { channelShow(!isDci); });
}

void CaWidget::channelShow(bool isCa)
{
    // The switch lights the LED in the words of the page that is seen.
    isCa ? ledWordsSet(tr("CA ON"), tr("CA OFF")) : ledWordsSet(tr("DCI ON"), tr("DCI OFF"));
    QWidget* pages[]{pCaChannelWidget, pDciChannelWidget};
    pages[isCa ? 1 : 0]->hide();
    pages[isCa ? 0 : 1]->show();
}

void CaWidget::channelsEnable(bool isFree)
{
    for (auto* pChannel : qAsConst(channels))
        pChannel->setEnabled(isFree);
}

/// The hidden boxes of the pages follow the one that is seen, and so do the timers of Auto.
void CaWidget::switchFollow(bool isEnable)
{
    for (auto* pChannel : qAsConst(channels))
    {
        shortcut::NoSignals::setChecked(pChannel->pCheckBoxEnable, isEnable);
        if (pChannel->isVisible())
            pChannel->enableSet(isEnable);
    }
}

void CaWidget::updateStatus()
{
    bool isEnable = false;
    Ca().enableGet(isEnable);
    shortcut::NoSignals::setChecked(pCheckBoxEnable, isEnable);
    channelsEnable(!isEnable);
    if (!pRadioButtonDci->isChecked())
        shortcut::NoSignals::setCheckedId(pButtonGroup, 0);
}
