#include "tuning-client/source/module/template-tree-model.h"

#include "tuning-client/source/file/xml-document.h"
#include "tuning-common/source/limits.h"

#include <QDebug>
#include <QDomDocument>

TemplateTreeModel::TemplateTreeModel(const QString& fileName, QObject* parent) : TreeModel(parent)
{
    try
    {
        const auto document = xmlDocumentRead(fileName);
        const auto table = document.firstChildElement();
        if (table.nodeName() == "Table")
        {
            pRootItem = std::make_unique<TreeItem>(QVector<QVariant>{table.attribute("ChipName")});
            setupModelData(table.firstChildElement(), pRootItem.get());
        }
    }
    catch (const std::exception& exception)
    {
        qWarning() << exception.what();
    }
}

void TemplateTreeModel::setupModelData(const QDomElement& element, TreeItem* parent)
{
    for (auto page = element; !page.isNull(); page = page.nextSiblingElement())
    {
        // The view lays out each text whole, whatever of it can be seen.
        const auto text = [&page](const char* name)
        { return page.attribute(name).left(int(t_common::limit::listText)); };
        parent->appendChild(new TreeItem({text("Name"), text("Type"), text("Level")}, parent));
    }
}
