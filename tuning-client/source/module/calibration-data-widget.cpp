#include "tuning-client/source/module/calibration-data-widget.h"

#include "tuning-client/source/control/dom-tree-widget.h"
#include "tuning-client/source/file/xml-document.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/file-system.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/xml-bytes.h"
#include "tuning-rest/source/camera.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QDir>
#include <QGridLayout>
#include <QPlainTextEdit>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtDebug>

#include <stdexcept>

namespace
{
/// Fetches the file into the directory, which has no others, and gives its local path.
QString download(t_transfer::ClientHolder& clientHolder, const std::string& fileName, const QTemporaryDir& directory)
{
    if (!directory.isValid())
        throw std::runtime_error("Download failed: " + directory.errorString().toStdString());
    const auto name = t_common::FileSystem::localNameGet(fileName);
    Json::Value jFile;
    jFile["path"] = fileName;
    jFile["path.local"] = directory.path().toStdString();
    clientHolder.fileDownload(jFile, t_transfer::pagePatience);

    // The transport cuts names that have a meaning in a URL.
    const auto files = QDir(directory.path()).entryList(QDir::Files | QDir::Hidden);
    if (files.isEmpty())
        throw std::runtime_error("Download failed: " + name + " did not arrive");
    return directory.filePath(files.first());
}

QDomElement elementOf(const QTreeWidgetItem* pItem) { return pItem->data(0, Qt::UserRole).value<QDomElement>(); }
} // namespace

CalibrationDataWidget::CalibrationDataWidget(QWidget* pParent)
    : AbstractWidget(pParent, "Calibration Data", false),
      pDomTreeWidgetAttribute(new DomTreeWidget(nullptr)),
      pDomTreeWidgetElement(new DomTreeWidget(nullptr)),
      pPlainTextEdit(new QPlainTextEdit)
{
    pGridLayoutScrollArea->addWidget(pDomTreeWidgetElement, 0, 0);
    pGridLayoutScrollArea->setRowStretch(pGridLayoutScrollArea->rowCount() - 1, 1);
    pGridLayoutScrollArea->setColumnStretch(pGridLayoutScrollArea->columnCount() - 1, 1);
    pGridLayoutScrollArea->addWidget(pDomTreeWidgetAttribute, 0, 1);
    pGridLayoutScrollArea->addWidget(pPlainTextEdit, 1, 0, 1, 2);

    pDomTreeWidgetElement->setHeaderLabels({tr("Tag"), tr("Text")});
    pDomTreeWidgetElement->setAccessibleName(tr("Elements"));
    pDomTreeWidgetAttribute->setHeaderLabels({tr("Attribute"), tr("Value")});
    pDomTreeWidgetAttribute->setAccessibleName(tr("Attributes"));
    pDomTreeWidgetAttribute->setRootIsDecorated(false);
    pPlainTextEdit->setAccessibleName(tr("Text"));
    pPlainTextEdit->setReadOnly(true);
    pPlainTextEdit->setMaximumHeight(pPlainTextEdit->sizeHint().height() / 2);
    // A table is one line of many thousand numbers, which would be measured for each break between words.
    pPlainTextEdit->setWordWrapMode(QTextOption::WrapAnywhere);

    connectGuarded(pDomTreeWidgetElement, &QTreeWidget::itemClicked,
                   [this](QTreeWidgetItem* pItem, int) { elementShow(pItem); });
    connectGuarded(pDomTreeWidgetElement, &QTreeWidget::currentItemChanged,
                   [this](QTreeWidgetItem* pItem, QTreeWidgetItem*)
                   {
                       // Items that are made anew stand for the same element, which is shown already.
                       if (pItem && elementOf(pItem) != elementShown)
                           elementShow(pItem);
                   });
}

void CalibrationDataWidget::updateStatus()
{
    const shortcut::WaitCursor cursor;
    elementForget();
    pPlainTextEdit->setPlaceholderText({});
    auto forget = qScopeGuard([this] { documentForget(); });

    std::string fileName;
    rest::Camera().calibrationGet(fileName, true);
    const QTemporaryDir directory;
    const auto path = download(clientHolder(), fileName, directory);
    try
    {
        const auto bytes = t_common::xmlBytesRead(path);
        // A show reads twice, and the second time mostly finds the same.
        if (bytes == xml && !pDomTreeWidgetElement->doc.isNull())
        {
            pDomTreeWidgetElement->setCurrentItem(nullptr);
            pDomTreeWidgetElement->collapseAll();
        }
        else
        {
            // Never two documents at once.
            documentForget();
            auto document = xmlDocumentParse(bytes, path);
            pDomTreeWidgetElement->domBinding(document);
            xml = bytes;
        }
        forget.dismiss();
    }
    catch (const std::exception& exception)
    {
        qDebug("Read XML failed");
        const auto reason = QString(exception.what()).remove(directory.path() + "/");
        pPlainTextEdit->setPlaceholderText(tr("Read XML failed") + ": " + reason);
    }
}

void CalibrationDataWidget::documentForget()
{
    QDomDocument document;
    pDomTreeWidgetElement->domBinding(document);
    xml.clear();
}

void CalibrationDataWidget::elementForget()
{
    elementShown.clear();
    pDomTreeWidgetAttribute->clear();
    pPlainTextEdit->clear();
}

void CalibrationDataWidget::elementShow(QTreeWidgetItem* pItem)
{
    elementForget();
    elementShown = elementOf(pItem);
    const auto attributes = elementShown.attributes();
    for (int i = 0; i < attributes.count(); ++i)
    {
        const auto attribute = attributes.item(i).toAttr();
        auto* pAttributeItem = pDomTreeWidgetAttribute->childCreate(attribute.name(), nullptr, 0);
        pAttributeItem->setText(1, attribute.value());
        pAttributeItem->setData(1, Qt::UserRole, attribute.value());
    }

    const auto text = pItem->text(1);
    const auto shown = int(t_common::limit::reportText);
    pPlainTextEdit->setPlainText(text.size() > shown ? text.left(shown) + tr("... (%1 characters)").arg(text.size())
                                                     : text);
}
