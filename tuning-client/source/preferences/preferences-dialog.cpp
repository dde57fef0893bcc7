#include "tuning-client/source/preferences/preferences-dialog.h"

#include "tuning-client/source/preferences/calibration-widget.h"
#include "tuning-client/source/preferences/capture-widget.h"
#include "tuning-client/source/preferences/server-widget.h"
#include "tuning-client/source/preferences/window-widget.h"

#include <QScreen>
#include <QToolBox>
#include <QVBoxLayout>

PreferencesDialog::PreferencesDialog(QWidget* pParent) : QDialog(pParent), pToolBox(new QToolBox)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(tr("Preferences"));
    auto* pLayout = new QVBoxLayout(this);
    pLayout->addWidget(pToolBox);
    pToolBox->addItem(new CalibrationWidget(pToolBox), QIcon(":/images/calibration-615-512.png"),
                      tr("Calibration Settings"));
    pToolBox->addItem(new CaptureWidget(pToolBox), QIcon(":/images/screenshot.png"), tr("Capture Settings"));
    pToolBox->addItem(new ServerWidget(pToolBox), QIcon(":/images/refresh.png"), tr("Server Settings"));
    pToolBox->addItem(new WindowWidget(pToolBox), QIcon(":/images/window.png"), tr("Window Settings"));
    setMinimumSize(sizeHint() * 1.5);
    // Room for the server page without scrolling.
    resize(QSize(minimumWidth() * 5 / 4, minimumHeight() * 3 / 2).boundedTo(screen()->availableSize()));
}
