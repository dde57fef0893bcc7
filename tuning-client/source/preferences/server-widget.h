#pragma once

#include "tuning-client/source/preferences/settings-abstract-widget.h"

class QCompleter;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QStringListModel;

/// The way to the board. Nothing of it counts before "Apply".
class ServerWidget : public SettingsAbstractWidget
{
    Q_OBJECT

public:
    explicit ServerWidget(QWidget* pParent);

    void configGet() override;
    void configSet(bool isDefault) override;

    QGroupBox* pGroupBoxHttp;
    QGroupBox* pGroupBoxUart;
    QLineEdit* pLineEditPort;
    QLineEdit* pLineEditServer;
    QLineEdit* pLineEditUart;
    QListWidget* pListWidget; ///< of texts host + ":" + port
    QPushButton* pPushButtonAdd;
    QPushButton* pPushButtonDelete;
    QRadioButton* pRadioButtonHttp;
    QRadioButton* pRadioButtonUart;

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void httpBuild();
    void uartBuild();
    void serverAdd();
    void serversDelete();
    void currentRowShow(int row);

    QStringListModel* pPortModel; ///< the ports that are present
    QCompleter* pCompleter;       ///< offers them
    bool isPortEntered = false;   ///< by a click that is not over yet
};
