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
    /// binding. Rows of the same keys stay unfolded, current and where they are.
    void binding(t_json::Value* pValue, bool isReadOnly);

    /// Makes room for the keys and values that are seen.
    void columnsFit();

    QMenu* pMenu = nullptr; ///< null until something that can be edited is bound
    QAction* pActionDelete = nullptr;
    QAction* pActionDuplicate = nullptr;

signals:
    /// The user has changed the document.
    void edited();

protected:
    int sizeHintForColumn(int column) const override;

private:
    int valueWidth() const;
    void valueColumnGrow();
    void menuBuild();
    void menuShow(const QPoint& position);
    void elementDelete();
    void elementDuplicate();

    /// Whether the current row is an element of an array below the top level.
    bool isElement() const;
};
