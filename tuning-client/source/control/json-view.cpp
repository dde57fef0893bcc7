#include "tuning-client/source/control/json-view.h"

#include "tuning-client/source/control/json-delegate.h"
#include "tuning-client/source/control/json-model.h"
#include "tuning-json/source/value.h"

#include <QAction>
#include <QMenu>

JsonView::JsonView(QWidget* pParent) : TextView(pParent)
{
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
}

void JsonView::binding(t_json::Value* pValue, bool isReadOnly)
{
    auto* pOldModel = qobject_cast<JsonModel*>(model());
    auto* pOldSelection = selectionModel();
    auto* pOldDelegate = itemDelegate();
    auto* pModel = new JsonModel(pValue, isReadOnly, nullptr);
    pModel->setParent(this);
    setModel(pModel);
    delete pOldSelection;
    delete pOldModel;
    setItemDelegate(new JsonDelegate(this));
    delete pOldDelegate;

    setContextMenuPolicy(isReadOnly ? Qt::DefaultContextMenu : Qt::CustomContextMenu);
    if (!isReadOnly && !pMenu)
        menuBuild();
}

void JsonView::menuBuild()
{
    pMenu = new QMenu(this);
    pActionDuplicate = pMenu->addAction(tr("Duplicate"), this, &JsonView::elementDuplicate);
    pActionDelete = pMenu->addAction(tr("Delete"), this, &JsonView::elementDelete);
    connect(this, &QWidget::customContextMenuRequested, this, &JsonView::menuShow);
}

void JsonView::menuShow(const QPoint& position)
{
    if (indexAt(position).isValid() && isElement())
        pMenu->exec(QCursor::pos());
}

bool JsonView::isElement() const
{
    const auto* pModel = qobject_cast<const JsonModel*>(model());
    const auto* pValue = pModel ? pModel->value(currentIndex().parent()) : nullptr;
    return pValue && pValue->type() == t_json::ValueTypeArray;
}

void JsonView::elementDuplicate()
{
    if (!isElement())
        return;
    auto* pModel = static_cast<JsonModel*>(model());
    pModel->insert(currentIndex(), pModel->value(currentIndex()));
}

void JsonView::elementDelete()
{
    if (isElement())
        static_cast<JsonModel*>(model())->erase(currentIndex());
}
