#pragma once

#include "tuning-client/source/abstract-widget.h"

/// Base of the preference pages. They work on the global `config` in memory, not on the board.
class SettingsAbstractWidget : public AbstractWidget
{
    Q_OBJECT

public:
    SettingsAbstractWidget(QWidget* pParent, const QString& name);

protected:
    /// Asks for a directory; empty when the user cancelled.
    QString directoryChoose();
};
