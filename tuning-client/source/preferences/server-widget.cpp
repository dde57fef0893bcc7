#include "tuning-client/source/preferences/server-widget.h"

#include "tuning-client/source/config/config.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/preferences/serial-ports.h"
#include "tuning-rest/source/abstract.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QStyle>

#include <utility>

namespace
{
struct Host
{
    QString ip;
    QString port;
};

/// At the last colon, since a host in numbers may have some of its own.
Host hostOf(const QListWidgetItem* pItem)
{
    const auto text = pItem->text();
    const int colon = text.lastIndexOf(':');
    return {text.left(colon), text.mid(colon + 1)};
}
} // namespace

ServerWidget::ServerWidget(QWidget* pParent)
    : SettingsAbstractWidget(pParent, "server"),
      pGroupBoxHttp(new QGroupBox),
      pGroupBoxUart(new QGroupBox),
      pLineEditPort(new QLineEdit("8080")),
      pLineEditServer(new QLineEdit("127.0.0.1")),
      pLineEditUart(new QLineEdit("COM")),
      pListWidget(new QListWidget),
      pPushButtonAdd(new QPushButton(tr("Add"))),
      pPushButtonDelete(new QPushButton(tr("Delete"))),
      pRadioButtonHttp(new QRadioButton(tr("HTTP"))),
      pRadioButtonUart(new QRadioButton(tr("UART"))),
      pPortModel(new QStringListModel(this)),
      pCompleter(new QCompleter(pPortModel, this))
{
    auto* pGroupBoxType = new QGroupBox(tr("Connection Type"));
    auto* pLayoutType = new QHBoxLayout(pGroupBoxType);
    pLayoutType->addWidget(pRadioButtonHttp);
    pLayoutType->addWidget(pRadioButtonUart);
    pLayoutType->addStretch();
    httpBuild();
    uartBuild();
    auto* pPushButtonApply = new QPushButton(tr("Apply"));
    auto* pLayoutApply = new QHBoxLayout;
    pLayoutApply->addStretch();
    pLayoutApply->addWidget(pPushButtonApply);

    pGridLayoutScrollArea->addWidget(pGroupBoxType, 0, 0);
    pGridLayoutScrollArea->addWidget(pGroupBoxHttp, 1, 0);
    pGridLayoutScrollArea->addWidget(pGroupBoxUart, 2, 0);
    pGridLayoutScrollArea->addLayout(pLayoutApply, 3, 0);
    pGridLayoutScrollArea->setRowStretch(4, 1);

    connect(pRadioButtonHttp, &QRadioButton::toggled, pGroupBoxHttp, &QGroupBox::setVisible);
    connect(pRadioButtonUart, &QRadioButton::toggled, pGroupBoxUart, &QGroupBox::setVisible);
    connect(pPushButtonApply, &QPushButton::clicked, this, [this] { emit write(false); });
}

void ServerWidget::httpBuild()
{
    pGroupBoxHttp->hide();
    auto* pLabelServer = new QLabel(tr("Server:"));
    pLabelServer->setBuddy(pLineEditServer);
    pLineEditServer->setAccessibleName(tr("Server"));
    pLineEditServer->setClearButtonEnabled(true);
    pLineEditServer->setInputMask("000.000.000.000;_");
    pLineEditServer->setMaximumWidth(pLineEditServer->sizeHint().width());
    pLineEditPort->setAccessibleName(tr("Port"));
    pLineEditPort->setClearButtonEnabled(true);
    pLineEditPort->setInputMask("00000;_");
    pLineEditPort->setMaximumWidth(pLineEditPort->sizeHint().width() / 2);
    pLineEditPort->installEventFilter(this);
    pPushButtonDelete->setEnabled(false);
    pListWidget->setAccessibleName(tr("Servers"));
    pListWidget->setIconSize(QSize(16, 16));

    auto* pLayout = new QGridLayout(pGroupBoxHttp);
    int column = 0;
    for (auto* pWidget : std::initializer_list<QWidget*>{pLabelServer, pLineEditServer, new QLabel(":"), pLineEditPort,
                                                         pPushButtonAdd, pPushButtonDelete})
        pLayout->addWidget(pWidget, 0, column++);
    pLayout->setColumnStretch(column, 1);
    pLayout->addWidget(pListWidget, 1, 0, 1, column + 1);

    connect(pPushButtonAdd, &QPushButton::clicked, this, &ServerWidget::serverAdd);
    connect(pPushButtonDelete, &QPushButton::clicked, this, &ServerWidget::serversDelete);
    connect(pListWidget, &QListWidget::currentRowChanged, this, &ServerWidget::currentRowShow);
}

void ServerWidget::uartBuild()
{
    pGroupBoxUart->hide();
    auto* pLabel = new QLabel(tr("UART"));
    pLabel->setBuddy(pLineEditUart);
    pLineEditUart->setAccessibleName(pLabel->text());
    // Not the line's own completer, whose list stands in the way of the next click after each letter.
    pCompleter->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    pCompleter->setWidget(pLineEditUart);
    connect(pCompleter, QOverload<const QString&>::of(&QCompleter::activated), pLineEditUart, &QLineEdit::setText);
    connect(pLineEditUart, &QLineEdit::textEdited, pCompleter, [this] { pCompleter->popup()->hide(); });
    pLineEditUart->installEventFilter(this);

    auto* pLayout = new QHBoxLayout(pGroupBoxUart);
    pLayout->addWidget(pLabel);
    pLayout->addWidget(pLineEditUart);
}

/// The ports of this computer are offered before a letter is typed, and a click into the network's port is there to
/// replace it.
bool ServerWidget::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool isFocus = pEvent->type() == QEvent::FocusIn;
    const auto reason = isFocus ? static_cast<QFocusEvent*>(pEvent)->reason() : Qt::OtherFocusReason;
    const bool isDown = pEvent->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(pEvent)->key() == Qt::Key_Down;
    // The list that has just been left must not come back, nor with the window.
    const bool isEntered = isFocus && reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
    // Later, when the click that brought the focus has been handled.
    if (pWatched == pLineEditUart && (isEntered || isDown))
        QMetaObject::invokeMethod(pCompleter, "complete", Qt::QueuedConnection);
    if (pWatched == pLineEditPort && isEntered)
        isPortEntered = reason == Qt::MouseFocusReason;
    if (pWatched == pLineEditPort && pEvent->type() == QEvent::MouseButtonRelease &&
        std::exchange(isPortEntered, false))
        pLineEditPort->selectAll();
    return SettingsAbstractWidget::eventFilter(pWatched, pEvent);
}

void ServerWidget::serverAdd()
{
    pListWidget->addItem(pLineEditServer->text() + ":" + pLineEditPort->text());
    if (pListWidget->currentRow() < 0)
        pListWidget->setCurrentRow(0);
}

void ServerWidget::serversDelete()
{
    for (auto* pItem : pListWidget->selectedItems())
        delete pListWidget->takeItem(pListWidget->row(pItem));
}

/// The mark shows the server in use.
void ServerWidget::currentRowShow(int row)
{
    pPushButtonDelete->setEnabled(row >= 0);
    for (int i = 0; i < pListWidget->count(); ++i)
        pListWidget->item(i)->setIcon(i == row ? style()->standardIcon(QStyle::SP_MediaPlay) : QIcon());
}

void ServerWidget::configGet()
{
    const auto& server = config.preferences.server;
    (server.type == "http" ? pRadioButtonHttp : pRadioButtonUart)->setChecked(true);
    if (!server.http.collection.isEmpty())
        pListWidget->clear();
    for (const auto& host : server.http.collection)
        pListWidget->addItem(host.first + ":" + QString::number(host.second));
    if (server.http.index >= 0)
        pListWidget->setCurrentRow(server.http.index);
    if (!server.uart.port.isEmpty())
        pLineEditUart->setText(server.uart.port);
    pPortModel->setStringList(serialPorts());
}

void ServerWidget::configSet(bool)
{
    const auto type = pRadioButtonHttp->isChecked() ? "http" : "uart";
    auto address = pLineEditUart->text();
    Json::Value jConfig;
    jConfig["type"] = type;
    if (pRadioButtonUart->isChecked())
        jConfig["port"] = pLineEditUart->text().toStdString();
    else if (const auto* pItem = pListWidget->currentItem())
    {
        const auto host = hostOf(pItem);
        address = pItem->text();
        jConfig["ip"] = host.ip.toStdString();
        jConfig["port"] = host.port.toStdString();
    }
    else
    {
        QMessageBox::information(this, tr("Information Error"),
                                 tr("Ip address cannot be empty, please add it firstly"));
        return;
    }
    const auto before = rest::Abstract::connection();
    if (auto* pMainWindow = mainWindow())
        pMainWindow->clientHolderSet(jConfig);
    if (statusBar() && rest::Abstract::connection() != before)
        statusBar()->showMessage(tr("Server %1").arg(address), 0);

    // A client that can't be built does not take the entries from the user.
    auto& server = config.preferences.server;
    server.type = type;
    server.http.index = pListWidget->currentRow();
    server.http.collection.clear();
    for (int row = 0; row < pListWidget->count(); ++row)
    {
        const auto host = hostOf(pListWidget->item(row));
        server.http.add(host.ip, uint16_t(host.port.toUInt()));
    }
    server.uart.port = pLineEditUart->text();
}
