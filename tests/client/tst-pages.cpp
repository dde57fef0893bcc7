// What holds for every page of the catalogue: a new page is under test the moment it is listed. What each control is,
// and what it sends, stands in pages.txt.

#include "board-simulator/source/data.h"
#include "board-simulator/source/keys.h"
#include "board-simulator/source/wire.h"
#include "tests/support/files.h"
#include "tests/support/modals.h"
#include "tests/support/pages-fixture.h"
#include "tuning-client/source/control/multi-widget.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-common/source/base64.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>
#include <map>

namespace
{
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

/// Which elements of a record differ, as "name" or "name[i]".
std::set<std::string> elementsChanged(const board::Layout& layout, const std::string& before, const std::string& after)
{
    std::set<std::string> names;
    for (const auto& field : layout.fields)
        for (size_t i = 0; i < field.elementCount(); ++i)
        {
            const auto offset = field.offset + i * field.elementSize();
            if (before.compare(offset, field.elementSize(), after, offset, field.elementSize()) != 0)
                names.insert(field.elementCount() > 1 ? field.name + "[" + std::to_string(i) + "]" : field.name);
        }
    return names;
}

/// The layout that a module's record has in the generation, by the board's own description.
const board::Layout& layoutOf(const Service& service, const board::Key& key)
{
    static const auto modules = []
    {
        Json::Value value;
        std::istringstream(board::modulesText) >> value;
        return value;
    }();
    const auto& generations = modules[service.className];
    const auto index = generations.size() > 1 ? Json::ArrayIndex(service.generation) : 0;
    const auto name = generations.empty() ? "" : generations[index]["config"][key.name]["layout"].asString();
    return board::Wire::instance().record(key.recordName()).layout(name);
}

std::string bytesOf(const Json::Value& text) { return t_common::Base64::decode(text.asString()); }

/// What a command would change of the settings `before`, which the board gave.
std::set<std::string> changes(const Service& service, const Json::Value& before, const Json::Value& query)
{
    std::set<std::string> names;
    for (const auto& key : board::Keys::instance().request(service.className, service.method, service.generationName()))
    {
        if (!before.isMember(key.name) || !query.isMember(key.name))
            continue;
        const auto& old = before[key.name];
        const auto& fresh = query[key.name];
        if (!key.recordName().empty())
            names.merge(elementsChanged(layoutOf(service, key), bytesOf(old), bytesOf(fresh)));
        else if (old.isDouble() ? std::fabs(old.asDouble() - fresh.asDouble()) > 1e-6 : old != fresh)
            names.insert(key.name);
    }
    return names;
}

std::string joined(const std::set<std::string>& names)
{
    std::string text;
    for (const auto& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

bool isControl(const QWidget* pWidget)
{
    const auto* pGroupBox = qobject_cast<const QGroupBox*>(pWidget);
    const auto* pButton = qobject_cast<const QPushButton*>(pWidget);
    return (qobject_cast<const QSlider*>(pWidget) || qobject_cast<const QAbstractSpinBox*>(pWidget) ||
            qobject_cast<const QComboBox*>(pWidget) || qobject_cast<const QCheckBox*>(pWidget) ||
            qobject_cast<const QRadioButton*>(pWidget) || (pGroupBox && pGroupBox->isCheckable()) ||
            (pButton && (pButton->text() == "Reset" || pButton->text() == "Edit Auto Algorithm Table"))) &&
           pWidget->accessibleName() != "Module";
}

QString nameOf(const QWidget* pControl)
{
    if (!pControl->accessibleName().isEmpty())
        return pControl->accessibleName();
    if (const auto* pButton = qobject_cast<const QAbstractButton*>(pControl))
        return pButton->text();
    const auto* pGroupBox = qobject_cast<const QGroupBox*>(pControl);
    return pGroupBox ? pGroupBox->title() : QString();
}

QString kindOf(const QWidget* pControl)
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
    if (const auto* pComboBox = qobject_cast<const QComboBox*>(pControl))
    {
        QStringList items;
        for (int i = 0; i < pComboBox->count(); ++i)
            items.append(pComboBox->itemText(i));
        return items.join(" | ");
    }
    return QString(pControl->metaObject()->className()).mid(1).toLower();
}

/// Changes a control by the keyboard. False when there is nothing to choose.
bool operate(QWidget* pControl)
{
    if (auto* pSlider = qobject_cast<QSlider*>(pControl))
        QTest::keyClick(pSlider, pSlider->value() == pSlider->minimum() ? Qt::Key_End : Qt::Key_Home);
    else if (auto* pDoubleSpinBox = qobject_cast<QDoubleSpinBox*>(pControl))
        QTest::keyClick(pControl, pDoubleSpinBox->value() == pDoubleSpinBox->minimum() ? Qt::Key_Up : Qt::Key_Down);
    else if (auto* pSpinBox = qobject_cast<QSpinBox*>(pControl))
        QTest::keyClick(pControl, pSpinBox->value() == pSpinBox->minimum() ? Qt::Key_Up : Qt::Key_Down);
    else if (auto* pComboBox = qobject_cast<QComboBox*>(pControl))
    {
        if (pComboBox->count() < 2)
            return false;
        QTest::keyClick(pControl, pComboBox->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    else
        QTest::keyClick(pControl, Qt::Key_Space);
    return true;
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
    const auto visible = [&]
    {
        for (auto* pWidget : qAsConst(chain))
            if (pWidget->isVisible() && !met.contains(pWidget))
            {
                met.insert(pWidget);
                action(pWidget);
            }
    };
    bool hasParts = false;
    for (auto* pTabWidget : page.findChildren<QTabWidget*>())
        for (int i = 0; i < pTabWidget->count(); ++i)
        {
            hasParts = true;
            pTabWidget->setCurrentIndex(i);
            visible();
        }
    if (auto* pMulti = qobject_cast<MultiWidget*>(&page))
        for (int i = 0; i < pMulti->pComboBox->count(); ++i)
        {
            hasParts = true;
            pMulti->pComboBox->setCurrentIndex(i);
            visible();
        }
    if (!hasParts)
        visible();
}

/// The walk through one page, written down.
class PageWalkTest : public PagesTest
{
protected:
    /// What the page's modules are set to, by class and generation.
    std::map<std::string, std::pair<Service, Json::Value>> settings()
    {
        std::map<std::string, std::pair<Service, Json::Value>> found;
        for (const auto& request : reads())
        {
            const Service service(request.query);
            if (service.method == "configGet")
                found.insert({service.className + std::to_string(service.generation),
                              {service, run(request.id, query(service))}});
        }
        return found;
    }

    static Json::Value query(const Service& service)
    {
        Json::Value query(Json::objectValue);
        if (!service.generationName().empty())
            query["generation"] = service.generation;
        return query;
    }

    void switchSet(bool isEnable)
    {
        for (const auto& request : reads())
        {
            const Service service(request.query);
            if (service.method != "enableGet" && service.method != "enabelGet")
                continue;
            auto set = query(service);
            set["enable"] = isEnable;
            run(service.id("enableSet"), set);
        }
        emit pMainWindow->refresh();
    }

    /// Changes the control and tells what was sent; then all is as before.
    QString sendingOf(QWidget* pControl)
    {
        const auto before = settings();
        board->requestsClear();
        const Modals accepting([](QDialog& dialog) { dialog.accept(); });
        if (!operate(pControl))
            return "no choice";
        QStringList parts;
        for (const auto& request : writes())
        {
            const Service service(request.query);
            const auto found = before.find(service.className + std::to_string(service.generation));
            auto text = QString::fromStdString(service.text());
            if (service.method == "configSet" && found != before.end())
                text += ": " + QString::fromStdString(joined(changes(service, found->second.second, request.query)));
            else if (service.method == "enableSet")
            {
                text += request.query["enable"].asBool() ? ": on" : ": off";
                const auto told = led().toolTip();
                emit pMainWindow->refresh();
                EXPECT_EQ(str(told), str(led().toolTip())) << "the LED follows the switch";
            }
            parts.append(text);
            EXPECT_TRUE(isRead() || !status().startsWith("Server")) << str(status());
        }
        for (const auto& [key, setting] : before)
        {
            auto back = setting.second;
            back.removeMember("error");
            const auto generation = query(setting.first);
            if (generation.isMember("generation"))
                back["generation"] = generation["generation"];
            run(setting.first.id("configSet"), back);
        }
        switchSet(false);
        return parts.isEmpty() ? "nothing" : parts.join(" / ");
    }

    /// All that the page offers and does, as text.
    QString transcript(const QString& name)
    {
        QString text;
        QTextStream stream(&text);
        // The loop of the last page may have run for a frame or two.
        exposureSet();
        auto& widget = settled(name);
        stream << "[" << name << "]\n";
        QSet<QWidget*> met;
        const auto controls = [&]
        {
            walk(widget,
                 [&](QWidget* pControl)
                 {
                     if (met.contains(pControl) || !pControl->isEnabled())
                         return;
                     met.insert(pControl);
                     SCOPED_TRACE(str(name + " / " + nameOf(pControl)));
                     stream << nameOf(pControl) << "; " << kindOf(pControl) << "; " << sendingOf(pControl) << "\n";
                 });
        };
        controls();
        const auto off = led().toolTip();
        for (auto* pComboBox : widget.findChildren<QComboBox*>())
            if (pComboBox->accessibleName() == "Working Mode" && pComboBox->isVisible())
            {
                pComboBox->setCurrentText("Auto");
                stream << "In Auto:\n";
                controls();
                pComboBox->setCurrentText("Manual");
            }
        switchSet(true);
        QStringList free;
        bool isAllFree = true;
        walk(widget,
             [&](QWidget* pControl)
             {
                 isAllFree = isAllFree && pControl->isEnabled();
                 if (pControl->isEnabled() && !qobject_cast<QSlider*>(pControl))
                     free.append(nameOf(pControl));
             });
        stream << "Free while on: " << (isAllFree ? "all" : free.join(", ")) << "\n";
        stream << "LED: " << off << " | " << led().toolTip() << "\n";
        switchSet(false);
        return text;
    }
};
} // namespace

// Each change of a control sends one command that changes one field, or the file says what it does instead. A page that
// was changed on purpose is written down anew with PAGES_RECORD=<file>, to be read line by line.
TEST_F(PageWalkTest, EveryControlIsAndDoesWhatIsWrittenDown)
{
    QString text;
    for (const auto& name : names())
        text += transcript(name) + "\n";
    if (const auto* pPath = std::getenv("PAGES_RECORD"))
        fileWrite(pPath, text.toUtf8());
    const auto expected = QString::fromUtf8(fileRead(PAGES_TEXT)).split('\n');
    const auto actual = text.split('\n');
    QString page;
    for (int i = 0; i < qMax(expected.size(), actual.size()); ++i)
    {
        if (actual.value(i).startsWith('['))
            page = actual.value(i);
        ASSERT_EQ(str(actual.value(i)), str(expected.value(i))) << "line " << i + 1 << ", page " << str(page);
    }
}

TEST_F(PagesTest, ShowingWritesNothingAndAHiddenPageIsSilent)
{
    open();
    for (const auto& name : names())
    {
        SCOPED_TRACE(str(name));
        board->requestsClear();
        auto& widget = page(name);
        EXPECT_TRUE(writes().empty()) << writes().front().body;
        for (const auto* pRow : widget.findChildren<SliderSpinWidget*>())
            EXPECT_FALSE(pRow->findChild<QLabel*>()->text().startsWith("SliderSpinWidget")) << "left by the base";
        pMainWindow->hide();
        board->requestsClear();
        emit pMainWindow->refresh();
        for (auto* pTimer : central().findChildren<QTimer*>())
            EXPECT_FALSE(pTimer->isActive()) << "a hidden page's timer would ask the board";
        EXPECT_EQ(board->requestCount(), 0u);
        pMainWindow->show();
    }
}

// Values of one board must not reach another with one click: a new connection has to be read first.
TEST_F(PagesTest, NothingIsSentThatWasNotReadFromThisBoard)
{
    for (const auto& name : names())
    {
        SCOPED_TRACE(str(name));
        auto& widget = settled(name);
        QWidget* pControl = nullptr;
        walk(widget,
             [&](QWidget* pCandidate)
             {
                 if (pControl || !pCandidate->isEnabled())
                     return;
                 board->requestsClear();
                 if (!qobject_cast<QPushButton*>(pCandidate) && operate(pCandidate) && !writes().empty())
                     pControl = pCandidate;
             });
        if (!pControl)
            continue;
        Json::Value jConfig;
        jConfig["type"] = "http";
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = board->port();
        pMainWindow->clientHolderSet(jConfig);
        board->requestsClear();
        operate(pControl);
        EXPECT_TRUE(writes().empty()) << nameOf(pControl).toStdString();
        EXPECT_GT(board->requestCount(), 0u) << "read instead";
        EXPECT_EQ(status(), "Not sent: the board's values had not been read yet");
        board->requestsClear();
        operate(pControl);
        EXPECT_EQ(writes().size(), 1u) << "read by now";
    }
}

TEST_F(PagesTest, WheelSendsAndChangesNothing)
{
    for (const auto& name : names())
    {
        auto& widget = settled(name);
        const auto values = [&]
        {
            QString text;
            walk(widget,
                 [&](QWidget* pControl)
                 {
                     if (const auto* pSlider = qobject_cast<QSlider*>(pControl))
                         text += QString::number(pSlider->value()) + " ";
                     if (const auto* pSpinBox = qobject_cast<QAbstractSpinBox*>(pControl))
                         text += pSpinBox->text() + " ";
                     if (const auto* pComboBox = qobject_cast<QComboBox*>(pControl))
                         text += pComboBox->currentText() + " ";
                 });
            return text;
        };
        const auto before = values();
        board->requestsClear();
        for (auto* pChild : widget.findChildren<QWidget*>())
        {
            if (!pChild->isVisible())
                continue;
            pChild->setFocus();
            for (int delta : {120, -120})
            {
                const QPointF middle = pChild->rect().center();
                QWheelEvent wheel(middle, pChild->mapToGlobal(middle.toPoint()), {}, {0, delta}, Qt::NoButton,
                                  Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(pChild, &wheel);
            }
        }
        EXPECT_TRUE(writes().empty()) << str(name);
        EXPECT_EQ(values(), before) << str(name);
    }
}

namespace
{
/// Whether `pNext` is read after `pFirst`: what stands lower, or in the same row further right, by the two widgets that
/// hold them side by side.
bool isReadAfter(const QWidget* pFirst, const QWidget* pNext)
{
    const auto ancestors = [](const QWidget* pWidget)
    {
        QVector<const QWidget*> line;
        for (; pWidget; pWidget = pWidget->parentWidget())
            line.prepend(pWidget);
        return line;
    };
    const auto first = ancestors(pFirst);
    const auto next = ancestors(pNext);
    int i = 0;
    while (i < first.size() && i < next.size() && first[i] == next[i])
        ++i;
    if (i == first.size() || i == next.size())
        return i == first.size(); // the group before what is in it
    const auto left = first[i]->geometry();
    const auto right = next[i]->geometry();
    return left.bottom() <= right.top() || (left.top() < right.bottom() && left.left() < right.left());
}
} // namespace

TEST_F(PagesTest, ControlsHaveNamesAndTheTabKeyReadsThem)
{
    for (const auto& name : names())
    {
        auto& widget = settled(name);
        QWidget* pLast = nullptr;
        walk(widget,
             [&](QWidget* pControl)
             {
                 EXPECT_FALSE(nameOf(pControl).isEmpty()) << str(name) << ": " << pControl->metaObject()->className();
                 EXPECT_TRUE(!pLast || !pLast->isVisible() || isReadAfter(pLast, pControl))
                     << str(name) << ": " << str(nameOf(pControl)) << " after " << str(nameOf(pLast));
                 pLast = pControl;
             });
        for (const auto* pLabel : widget.findChildren<QLabel*>("row-label"))
            EXPECT_TRUE(pLabel->buddy()) << str(pLabel->text());
    }
}
