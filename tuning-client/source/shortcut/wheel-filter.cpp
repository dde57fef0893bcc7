#include "tuning-client/source/shortcut/wheel-filter.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace
{
class WheelFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() != QEvent::Wheel)
            return QObject::eventFilter(pWatched, pEvent);
        // Not accepted, so that it goes on to the parent and in the end to the scroll area.
        pEvent->ignore();
        return true;
    }
};

template <class Control>
void filterInstall(QWidget* pPage, WheelFilter* pFilter)
{
    for (auto* pControl : pPage->findChildren<Control*>())
    {
        if (qobject_cast<QScrollBar*>(pControl))
            continue;
        pControl->installEventFilter(pFilter);
        // The default of spin and combo boxes would give them the focus by the wheel.
        if (pControl->focusPolicy() == Qt::WheelFocus)
            pControl->setFocusPolicy(Qt::StrongFocus);
    }
}
} // namespace

void shortcut::wheelIgnore(QWidget* pPage)
{
    static const auto name = QStringLiteral("wheel-filter");
    auto* pFilter = static_cast<WheelFilter*>(pPage->findChild<QObject*>(name, Qt::FindDirectChildrenOnly));
    if (!pFilter)
    {
        pFilter = new WheelFilter(pPage);
        pFilter->setObjectName(name);
    }
    filterInstall<QAbstractSlider>(pPage, pFilter);
    filterInstall<QAbstractSpinBox>(pPage, pFilter);
    filterInstall<QComboBox>(pPage, pFilter);
}
