#pragma once

#include "tuning-client/source/control/text-delegate.h"

#include <QTreeView>

class QAction;
class QMenu;

namespace t_json
{
class Value;
}

/// The tree editor of a JSON document. Elements of arrays can be duplicated and deleted through a context menu.
class JsonView : public TextView<QTreeView>
{
    Q_OBJECT

public:
    explicit JsonView(QWidget* pParent);

    /// Shows the document in place of the last one. Edits go straight into it; it has to outlive the view or the next
    /// binding.
    void binding(t_json::Value* pValue, bool isReadOnly);

    QMenu* pMenu = nullptr; ///< null until something that can be edited is bound
    QAction* pActionDelete = nullptr;
    QAction* pActionDuplicate = nullptr;

private:
    void menuBuild();
    void menuShow(const QPoint& position);
    void elementDelete();
    void elementDuplicate();

    /// Whether the current row is an element of an array below the top level.
    bool isElement() const;
};
