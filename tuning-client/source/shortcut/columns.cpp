#include "tuning-client/source/shortcut/columns.h"

#include "tuning-client/source/control/row-names.h"

#include <QWidget>

namespace
{
void widthsAlign(QWidget* pPage, const char* name)
{
    const auto parts = pPage->findChildren<QWidget*>(name);
    int width = 0;
    for (const auto* pPart : parts)
        width = qMax(width, pPart->sizeHint().width());
    for (auto* pPart : parts)
        pPart->setMinimumWidth(width);
}
} // namespace

void shortcut::columnsAlign(QWidget* pPage)
{
    widthsAlign(pPage, row::label);
    widthsAlign(pPage, row::value);
}
