#include "tuning-client/source/control/json-view.h"

#include "tuning-client/source/control/json-delegate.h"
#include "tuning-client/source/control/json-model.h"
#include "tuning-json/source/value.h"

#include <QAction>
#include <QMenu>
#include <QScrollBar>
#include <QSet>
#include <QSignalBlocker>
#include <QStyle>

namespace
{
/// Hands over each row with the keys that lead to it, and goes on below those for which `isOpen` is true.
template <class IsOpen>
void rowsWalk(const QAbstractItemModel& model, const QModelIndex& parent, const QStringList& keys, IsOpen&& isOpen)
{
    for (int row = 0; row < model.rowCount(parent); ++row)
    {
        const auto index = model.index(row, JsonModel::ColumnKey, parent);
        const auto path = keys + QStringList(index.data().toString());
        if (isOpen(index, path))
            rowsWalk(model, index, path, isOpen);
    }
}

constexpr int valueLength = 20;

/// What the user has done to a tree that is about to be shown anew.
class Place
{
public:
    explicit Place(QTreeView& view_)
        : view(view_), across(view.horizontalScrollBar()->value()), down(view.verticalScrollBar()->value())
    {
        if (!view.model())
            return;
        const auto isOpen = [this](const QModelIndex& index, const QStringList& path)
        {
            if (index == view.currentIndex().siblingAtColumn(index.column()))
                current = {path, view.currentIndex().column()};
            if (view.isExpanded(index))
                unfolded.insert(path);
            return view.isExpanded(index);
        };
        rowsWalk(*view.model(), {}, {}, isOpen);
    }

    void restore()
    {
        // The owner would fit the columns for each row.
        const QSignalBlocker blocker(view);
        const auto isOpen = [this](const QModelIndex& index, const QStringList& path)
        {
            if (path == current.first)
                view.setCurrentIndex(index.siblingAtColumn(current.second));
            if (!unfolded.contains(path))
                return false;
            view.expand(index);
            return true;
        };
        rowsWalk(*view.model(), {}, {}, isOpen);
        view.scrollTo(view.currentIndex());
        view.horizontalScrollBar()->setValue(across);
        view.verticalScrollBar()->setValue(down);
    }

private:
    QTreeView& view;
    QSet<QStringList> unfolded;
    std::pair<QStringList, int> current;
    int across;
    int down;
};
} // namespace

JsonView::JsonView(QWidget* pParent) : TextView(pParent)
{
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
}

void JsonView::binding(t_json::Value* pValue, bool isReadOnly)
{
    Place place(*this);
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
    place.restore();
    valueColumnGrow();
    connect(pModel, &JsonModel::edited, this,
            [this]
            {
                valueColumnGrow();
                emit edited();
            });
}

void JsonView::columnsFit()
{
    resizeColumnToContents(JsonModel::ColumnKey);
    resizeColumnToContents(JsonModel::ColumnValue);
}

/// Wide enough for what the user may want to type; the present value may be a single digit.
int JsonView::valueWidth() const
{
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return fontMetrics().horizontalAdvance(QString(valueLength, '0')) + 2 * margin;
}

int JsonView::sizeHintForColumn(int column) const
{
    const int width = TextView::sizeHintForColumn(column);
    return column == JsonModel::ColumnValue ? qMax(width, valueWidth()) : width;
}

// The user may have made it wider. A text without end would push the types out of sight.
void JsonView::valueColumnGrow()
{
    const int most = qMax(valueWidth(), viewport()->width());
    const int width = qMin(sizeHintForColumn(JsonModel::ColumnValue), most);
    setColumnWidth(JsonModel::ColumnValue, qMax(columnWidth(JsonModel::ColumnValue), width));
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
