#pragma once

#include <QDialog>

class QToolBox;

/// What the client remembers of the user's choices. Each control writes to the global `config` at once, but the server
/// page waits for its "Apply"; the dialog has no other way out than to be closed, and deletes itself then.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(QWidget* pParent);

    QToolBox* pToolBox;
};
