#pragma once

#include "board-simulator/source/data.h"
#include "board-wire/source/keys.h"
#include "board-wire/source/record-bytes.h"
#include "board-wire/source/wire.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/control/multi-widget.h"
#include "tuning-common/source/base64.h"

#include <cmath>
#include <sstream>
#include <vector>

/// A command class in one generation, as a command names it.
struct Service
{
    std::string className;
    std::string method;
    int generation = 0;

    explicit Service(const Json::Value& query) : generation(query["generation"].asInt())
    {
        const auto function = query["function"].asString();
        const auto end = function.rfind("::");
        className = function.substr(6, end - 6);
        method = function.substr(end + 2);
    }

    int64_t id(const std::string& command) const { return board::Wire::instance().commandClass(className).id(command); }

    std::string generationName() const
    {
        for (const auto& [name, number] : board::Wire::instance().commandClass(className).generations)
            if (number == generation)
                return name;
        return {};
    }

    std::string text() const
    {
        return className + "::" + method + (generationName().empty() ? "" : " " + generationName());
    }
};

/// The elements in which a board's record differs from what it was once it has taken the one that was sent, with their
/// new values, of a whole array the first one and a sum; `kept` are the fields that it does not take.
inline QStringList elementsChanged(const board::Record& record, const board::Layout& layout, const Json::Value& kept,
                                   const std::string& before, const std::string& sent)
{
    board::RecordBytes bytes(record, layout);
    bytes.bytesSet(before);
    bytes.keep(kept);
    bytes.bytesSet(sent);
    const auto& after = bytes.bytes();
    QStringList changed;
    for (const auto& field : layout.fields)
    {
        QStringList elements;
        double sum = 0;
        for (size_t i = 0; i < field.elementCount(); ++i)
        {
            const auto offset = field.offset + i * field.elementSize();
            if (before.compare(offset, field.elementSize(), after, offset, field.elementSize()) == 0)
                continue;
            const auto index = field.elementCount() > 1 ? QString("[%1]").arg(i) : QString();
            sum += double(i + 1) * bytes.number(field.name, i);
            elements.append(QString::fromStdString(field.name) + index + "=" +
                            QString::number(bytes.number(field.name, i)));
        }
        if (elements.size() > 4)
            elements = QStringList(elements.first() +
                                   QString(" and %1 more, %2 by index").arg(elements.size() - 1).arg(sum, 0, 'g', 12));
        changed += elements;
    }
    return changed;
}

/// What the board's own description says of a setting in the generation.
inline Json::Value descriptionOf(const Service& service, const board::Key& key)
{
    static const auto modules = []
    {
        Json::Value value;
        std::istringstream(board::modulesText) >> value;
        return value;
    }();
    const auto& generations = modules[service.className];
    const auto index = generations.size() > 1 ? Json::ArrayIndex(service.generation) : 0;
    return generations.empty() ? Json::Value() : generations[index]["config"][key.name];
}

inline std::string bytesOf(const Json::Value& text) { return t_common::Base64::decode(text.asString()); }

/// What a command would change of the settings `before`, which the board gave.
inline QStringList changes(const Service& service, const Json::Value& before, const Json::Value& query)
{
    QStringList changed;
    for (const auto& key : board::Keys::instance().request(service.className, service.method, service.generationName()))
    {
        if (!before.isMember(key.name) || !query.isMember(key.name))
            continue;
        const auto& old = before[key.name];
        const auto& fresh = query[key.name];
        if (!key.recordName().empty())
        {
            const auto& record = board::Wire::instance().record(key.recordName());
            const auto description = descriptionOf(service, key);
            changed += elementsChanged(record, record.layout(description["layout"].asString()), description["kept"],
                                       bytesOf(old), bytesOf(fresh));
        }
        else if (old.isDouble() ? std::fabs(old.asDouble() - fresh.asDouble()) > 1e-6 : old != fresh)
            changed.append(QString::fromStdString(key.name + "=") + QString::number(fresh.asDouble()));
    }
    return changed;
}

/// The canvas of a plot with markers to move.
inline bool isMarkerPlot(const QWidget* pWidget)
{
    return pWidget->inherits("QwtPlotCanvas") && pWidget->focusPolicy() & Qt::TabFocus;
}

inline bool isControl(const QWidget* pWidget)
{
    const auto* pGroupBox = qobject_cast<const QGroupBox*>(pWidget);
    const auto* pButton = qobject_cast<const QPushButton*>(pWidget);
    return (qobject_cast<const QSlider*>(pWidget) || qobject_cast<const QAbstractSpinBox*>(pWidget) ||
            qobject_cast<const QComboBox*>(pWidget) || qobject_cast<const QCheckBox*>(pWidget) ||
            qobject_cast<const QRadioButton*>(pWidget) || isMarkerPlot(pWidget) ||
            (pGroupBox && pGroupBox->isCheckable()) ||
            (pButton && (pButton->text() == "Reset" || pButton->text() == "Edit Auto Algorithm Table"))) &&
           pWidget->accessibleName() != "Module";
}

inline QString nameOf(const QWidget* pControl)
{
    if (!pControl->accessibleName().isEmpty())
        return pControl->accessibleName();
    if (const auto* pButton = qobject_cast<const QAbstractButton*>(pControl))
        return pButton->text();
    const auto* pGroupBox = qobject_cast<const QGroupBox*>(pControl);
    return pGroupBox ? pGroupBox->title() : QString();
}

/// What the control shows.
inline QString valueOf(const QWidget* pControl)
{
    if (const auto* pSpinBox = qobject_cast<const QAbstractSpinBox*>(pControl))
        return pSpinBox->text();
    if (const auto* pComboBox = qobject_cast<const QComboBox*>(pControl))
        return pComboBox->currentText();
    if (const auto* pButton = qobject_cast<const QAbstractButton*>(pControl))
        return pButton->isChecked() ? "on" : "off";
    const auto* pSlider = qobject_cast<const QSlider*>(pControl);
    return pSlider ? QString::number(pSlider->value()) : QString();
}

inline QString kindOf(const QWidget* pControl)
{
    const auto range = [](auto* pBox, int decimals)
    {
        return QString("%1 to %2 by %3, %4 decimals")
            .arg(pBox->minimum())
            .arg(pBox->maximum())
            .arg(pBox->singleStep())
            .arg(decimals);
    };
    if (const auto* pBox = qobject_cast<const QDoubleSpinBox*>(pControl))
        return range(pBox, pBox->decimals());
    if (const auto* pBox = qobject_cast<const QSpinBox*>(pControl))
        return range(pBox, 0);
    if (qobject_cast<const QComboBox*>(pControl))
        return "\"" + valueOf(pControl) + "\" of a choice";
    if (isMarkerPlot(pControl))
        return "markers";
    return QString(pControl->metaObject()->className()).mid(1).toLower();
}

/// The button that is checked where `pControl` may be.
inline QAbstractButton* checkedInGroup(const QWidget* pControl)
{
    const auto* pButton = qobject_cast<const QRadioButton*>(pControl);
    return pButton && pButton->group() ? pButton->group()->checkedButton() : nullptr;
}

/// How a user changes the control: a step for a number, each other choice of a combo box, there and back for a box.
/// Empty when there is nothing to choose.
inline std::vector<std::function<void()>> operations(QWidget* pControl)
{
    const auto key = [pControl](Qt::Key code) { return [=] { QTest::keyClick(pControl, code); }; };
    if (auto* pSlider = qobject_cast<QSlider*>(pControl))
        return {key(pSlider->value() == pSlider->minimum() ? Qt::Key_End : Qt::Key_Home)};
    if (auto* pDoubleSpinBox = qobject_cast<QDoubleSpinBox*>(pControl))
        return {key(pDoubleSpinBox->value() == pDoubleSpinBox->minimum() ? Qt::Key_Up : Qt::Key_Down)};
    if (auto* pSpinBox = qobject_cast<QSpinBox*>(pControl))
        return {key(pSpinBox->value() == pSpinBox->minimum() ? Qt::Key_Up : Qt::Key_Down)};
    if (auto* pComboBox = qobject_cast<QComboBox*>(pControl))
    {
        std::vector<std::function<void()>> choices;
        for (int i = 0; i < pComboBox->count(); ++i)
            if (i != pComboBox->currentIndex())
                choices.push_back([=] { pComboBox->setCurrentIndex(i); });
        return choices;
    }
    if (qobject_cast<QCheckBox*>(pControl) || qobject_cast<QGroupBox*>(pControl))
        return {key(Qt::Key_Space), key(Qt::Key_Space)};
    if (isMarkerPlot(pControl))
        return {[fUp = key(Qt::Key_Up)]
                {
                    fUp(); // chooses the first marker
                    fUp();
                }};
    return {key(Qt::Key_Space)};
}

/// The titles of the tabs and groups around the control, from the outside in.
inline QString placeOf(const QWidget& page, const QWidget* pControl)
{
    QStringList titles;
    for (const auto* pChild = pControl; pChild != &page; pChild = pChild->parentWidget())
    {
        const auto* pGroupBox = qobject_cast<const QGroupBox*>(pChild);
        const auto* pStack = qobject_cast<const QStackedWidget*>(pChild->parentWidget());
        const auto* pTabs = pStack ? qobject_cast<const QTabWidget*>(pStack->parentWidget()) : nullptr;
        if (pGroupBox && pChild != pControl)
            titles.prepend("group \"" + pGroupBox->title() + "\"");
        if (pTabs)
            titles.prepend("tab \"" + pTabs->tabText(pStack->indexOf(const_cast<QWidget*>(pChild))) + "\"");
    }
    return titles.join(", ");
}

/// Walks all controls of a page in the order of the tab key, tab by tab and inner page by inner page.
template <class Action>
void walk(QWidget& page, const Action& action)
{
    QVector<QWidget*> chain;
    for (auto* pWidget = page.nextInFocusChain(); pWidget != &page; pWidget = pWidget->nextInFocusChain())
        if (page.isAncestorOf(pWidget) && isControl(pWidget))
            chain.append(pWidget);
    QSet<QWidget*> met;
    // An action may read the page, and so choose another part than the one that shows the controls: `fBring` brings it
    // back.
    const auto visible = [&](const std::function<void()>& fBring)
    {
        for (auto* pWidget : qAsConst(chain))
        {
            fBring();
            if (pWidget->isVisible() && !met.contains(pWidget))
            {
                met.insert(pWidget);
                action(pWidget);
            }
        }
    };
    const auto tabs = [&](const std::function<void()>& fBring)
    {
        fBring();
        bool hasTabs = false;
        for (auto* pTabWidget : page.findChildren<QTabWidget*>())
            for (int i = 0; pTabWidget->isVisible() && i < pTabWidget->count(); ++i)
            {
                hasTabs = true;
                visible(
                    [=]
                    {
                        fBring();
                        pTabWidget->setCurrentIndex(i);
                    });
            }
        if (!hasTabs)
            visible(fBring);
    };
    auto multis = page.findChildren<MultiWidget*>();
    if (auto* pSelf = qobject_cast<MultiWidget*>(&page))
        multis.append(pSelf);
    for (auto* pMulti : qAsConst(multis))
        for (int i = 0; i < pMulti->pComboBox->count(); ++i)
            tabs([=] { pMulti->pComboBox->setCurrentIndex(i); });
    if (multis.isEmpty())
        tabs([] {});
    // What is hidden still may stand behind a radio button. In the end all are as before.
    QVector<QAbstractButton*> checkedBefore;
    for (auto* pButton : page.findChildren<QRadioButton*>())
        if (met.size() < chain.size() && pButton->isVisible() && pButton->isEnabled() && !pButton->isChecked())
        {
            if (auto* pChecked = checkedInGroup(pButton))
                checkedBefore.prepend(pChecked);
            visible(
                [=]
                {
                    if (!pButton->isChecked())
                        pButton->click();
                });
        }
    for (auto* pButton : qAsConst(checkedBefore))
        pButton->click();
}
