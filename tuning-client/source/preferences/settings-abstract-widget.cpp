#include "tuning-client/source/preferences/settings-abstract-widget.h"

#include <QFileDialog>

SettingsAbstractWidget::SettingsAbstractWidget(QWidget* pParent, const QString& name)
    : AbstractWidget(pParent, QString(), false, Role::Part)
{
    setObjectName(name);
}

QString SettingsAbstractWidget::directoryChoose()
{
    return QFileDialog::getExistingDirectory(this, tr("Select Directory"), QDir::currentPath(),
                                             QFileDialog::DontResolveSymlinks);
}
