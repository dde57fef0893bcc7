#pragma once

#include "tuning-client/source/control/text-delegate.h"

#include <QDomDocument>
#include <QIcon>
#include <QTreeWidget>

Q_DECLARE_METATYPE(QDomElement)

/// The elements of an XML document as a tree of name and text. Of a large document, an element's children get their
/// items when it is opened or asked for them.
class DomTreeWidget : public TextView<QTreeWidget>
{
    Q_OBJECT

public:
    explicit DomTreeWidget(QWidget* pParent);

    /// Shows the document in place of the last one; a null document empties the tree.
    void domBinding(QDomDocument& document);

    /// Makes the items anew from the document. What was unfolded and current stays so.
    void refresh();

    /// Refreshes unless an item is being edited.
    void refreshMaybe();

    // A null parent stands for the top level.

    int childCount(const QTreeWidgetItem* pParent) const;
    QTreeWidgetItem* childAt(const QTreeWidgetItem* pParent, int index) const;

    /// The first child from `startIndex` on whose column 0 is `text`; -1 if there is none.
    int childFind(const QTreeWidgetItem* pParent, const QString& text, int startIndex) const;

    /// Makes an item behind the child at `index` - 1, with `index` 0 at the front.
    QTreeWidgetItem* childCreate(const QString& text, QTreeWidgetItem* pParent, int index);

    /// Puts the text of column 1 into the item's element.
    void updateDom(QTreeWidgetItem* pItem);

    QDomDocument doc;
    QIcon iconGroup; ///< of elements with child elements
    QIcon iconKey;   ///< of all others

signals:
    void domChanged();

protected:
    bool event(QEvent* pEvent) override;

    /// An asterisk unfolds what is below the current item, of a large document a part more each time.
    void keyPressEvent(QKeyEvent* pEvent) override;

private:
    void updateChildItems(const QDomElement& element, QTreeWidgetItem* pParent);
};
