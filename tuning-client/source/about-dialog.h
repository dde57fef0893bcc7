#pragma once

#include "tuning-client/source/abstract-dialog.h"

/// The versions of this program and, when the board answers, those of the board. Asks the board once, when it is built;
/// deletes itself when it is closed.
class AboutDialog : public AbstractDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* pParent);
};
