#include "tuning-client/source/preferences/settings-abstract-widget.h"

#include <QFileDialog>

// The name comes afterwards: these pages do not take up a window size of an earlier run.
SettingsAbstractWidget::SettingsAbstractWidget(QWidget* pParent, const QString& name) : AbstractWidget(pParent, "")
{
    setObjectName(name);
}

QString SettingsAbstractWidget::directoryChoose()
{
    return QFileDialog::getExistingDirectory(this, tr("Select Directory"), QDir::currentPath(),
                                             QFileDialog::DontResolveSymlinks);
}
