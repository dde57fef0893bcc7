#pragma once

#include "tuning-client/source/control/tree-model.h"

class QDomElement;

/// The pages of a chip as a list, in the order of its description: one row for each child element of `Table`.
class TemplateTreeModel : public TreeModel
{
    Q_OBJECT

public:
    /// A description that cannot be read, or is no `Table`, gives an empty model. Only the first is worth a warning.
    explicit TemplateTreeModel(const QString& fileName, QObject* parent = nullptr);

    /// Appends a row for the element and each sibling after it.
    void setupModelData(const QDomElement& element, TreeItem* parent);
};
