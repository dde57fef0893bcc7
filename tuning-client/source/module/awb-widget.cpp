#include "tuning-client/source/module/awb-widget.h"

#include "tuning-client/source/shortcut/form.h"
#include "tuning-rest/source/awb.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using rest::Awb;
using shortcut::NoSignals;

namespace
{
QLineEdit* projectionAdd(shortcut::Form& rows, const QString& text)
{
    auto* pLineEdit = new QLineEdit;
    pLineEdit->setInputMask("0.000");
    pLineEdit->setEnabled(false);
    rows.labelled(text, pLineEdit);
    return pLineEdit;
}

/// A value that the mask has no place for is left out: the mask would make another number of it.
void projectionShow(QLineEdit* pLineEdit, double value)
{
    const auto text = QString::number(value, 'f', 3);
    pLineEdit->setText(text.size() <= pLineEdit->maxLength() ? text : QString());
}
} // namespace

AwbWidget::AwbWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Auto White Balance", false),
      pCheckBoxEnable(new QCheckBox(tr("Enable Auto White Balance"))),
      pPushButtonReset(new QPushButton(tr("Reset"))),
      pTimer(new QTimer(this))
{
    ledWordsSet(tr("AWB ON"), tr("AWB OFF"));
    rowsBuild();
    connectSwitch(
        pCheckBoxEnable, [this](bool isEnable) { enableSet(isEnable); },
        [this](bool isFree) { settingsEnable(isFree); });
    connectLong(pPushButtonReset, &QPushButton::clicked,
                [this]
                {
                    Awb().reset();
                    readStatus();
                });
    pTimer->setInterval(500);
    connectTick(pTimer, [this] { statusShow(); });
}

void AwbWidget::rowsBuild()
{
    pGridLayoutScrollArea->addWidget(pCheckBoxEnable, 0, 0);
    pGridLayoutScrollArea->addWidget(pPushButtonReset, 0, 1, 1, shortcut::Form::columns - 1, Qt::AlignLeft);
    shortcut::Form rows(this, pGridLayoutScrollArea, {});
    pComboBoxMode = rows.comboBox(tr("White Balance Mode"), {{tr("Auto"), {}}, {tr("Manual"), {}}});
    pComboBoxIllumination = rows.comboBox(tr("Illumination Profile"), {});
    // Its items come with the read, which is after it has been laid out.
    pComboBoxIllumination->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    pCheckBoxDampingEnable = rows.checkBox(tr("Damping"));
    pLineEditRgMaxSky = projectionAdd(rows, tr("R/G Max Sky Projection"));
    pLineEditRgIndoor = projectionAdd(rows, tr("R/G Indoor Min Projection"));
    pLineEditRgOutdoor = projectionAdd(rows, tr("R/G Outdoor Min Projection"));
    pLineEditRgMax = projectionAdd(rows, tr("R/G Max Projection"));
    rows.stretch();
}

void AwbWidget::configSet()
{
    auto config = rest::recordZero<Awb::Config>();
    config.illuminationProfileIndex = pComboBoxIllumination->currentIndex();
    config.isAuto = pComboBoxMode->currentText() == tr("Auto");
    config.isDamping = pCheckBoxDampingEnable->isChecked();
    Awb().configSet(config);
}

void AwbWidget::enableSet(bool isEnable)
{
    if (isEnable)
        configSet();
    Awb().enableSet(isEnable);
    shortcut::timerSet(pTimer, isEnable);
}

void AwbWidget::settingsEnable(bool isEnabled)
{
    shortcut::enabledSet({pComboBoxMode, pComboBoxIllumination, pCheckBoxDampingEnable}, isEnabled);
}

void AwbWidget::updateStatus()
{
    bool isEnable = false;
    auto config = rest::recordZero<Awb::Config>();
    Awb().enableGet(isEnable).configGet(config);
    NoSignals::setChecked(pCheckBoxEnable, isEnable);
    shortcut::timerSet(pTimer, isEnable);
    NoSignals::setCurrentText(pComboBoxMode, config.isAuto ? tr("Auto") : tr("Manual"));

    shortcut::ComboItems profiles;
    for (size_t i = 0; i < rest::recordCount(config.profilesCount, config.profilesName); ++i)
        profiles.append({QString::fromStdString(rest::recordText(config.profilesName[i])), {}});
    NoSignals::refill(pComboBoxIllumination, profiles);
    NoSignals::setCurrentIndex(pComboBoxIllumination, config.illuminationProfileIndex);

    NoSignals::setChecked(pCheckBoxDampingEnable, config.isDamping);
    settingsEnable(!isEnable);
    ledShow(isEnable);
}

void AwbWidget::statusShow()
{
    auto status = rest::recordZero<Awb::Status>();
    Awb().statusGet(status);
    projectionShow(pLineEditRgMaxSky, status.maxSky);
    projectionShow(pLineEditRgIndoor, status.indoorMin);
    projectionShow(pLineEditRgOutdoor, status.outdoorMin);
    projectionShow(pLineEditRgMax, status.max);
}
