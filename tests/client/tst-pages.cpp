// What holds for every page of the catalogue: a new page is under test the moment it is listed. What each control is,
// and what it sends, stands in pages.txt.

#include "tests/support/page-walk.h"
#include "tests/support/pages-fixture.h"
#include "tuning-client/source/control/slider-spin-widget.h"

#include <map>

namespace
{
/// The walk through one page, written down.
class PageWalkTest : public PagesTest
{
protected:
    PageWalkTest()
    {
        // Of "Color Noise Reduction 2" both off frees the values; the page itself never sends that.
        auto noise = run(4001001, Json::Value(Json::objectValue));
        noise["enable_y"] = noise["enable_c"] = false;
        run(4001002, noise);
    }

    using Settings = std::map<std::string, std::pair<Service, Json::Value>>;

    /// What the page's modules are set to, by class and generation.
    Settings settings()
    {
        Settings found;
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
        isOn = isEnable;
        board->requestsClear();
        emit pMainWindow->refresh();
        EXPECT_TRUE(writes().empty()) << "a read has sent " << writes().front().body;
    }

    /// What the requests since have changed on the board.
    QString effect(const Settings& before)
    {
        QStringList parts;
        for (const auto& request : writes())
        {
            const Service service(request.query);
            const auto found = before.find(service.className + std::to_string(service.generation));
            auto text = QString::fromStdString(service.text());
            if (service.method == "configSet" && found != before.end())
            {
                const auto changed = changes(service, found->second.second, request.query);
                text += ": " + (changed.isEmpty() ? "as before" : changed.join(", "));
            }
            else if (service.method == "enableSet")
            {
                text += request.query["enable"].asBool() ? ": on" : ": off";
                const auto told = led().toolTip();
                emit pMainWindow->refresh();
                EXPECT_EQ(str(told), str(led().toolTip())) << "the LED follows the switch";
            }
            else if (service.method == "reset")
                text += board->requests().back().id == request.id ? ", nothing after it" : ", then a read";
            parts.append(text);
            EXPECT_TRUE(isRead() || !status().startsWith("Server")) << str(status());
        }
        return parts.isEmpty() ? "nothing" : parts.join(" and ");
    }

    void restore(const Settings& before)
    {
        for (const auto& [key, setting] : before)
        {
            auto back = setting.second;
            back.removeMember("error");
            const auto generation = query(setting.first);
            if (generation.isMember("generation"))
                back["generation"] = generation["generation"];
            run(setting.first.id("configSet"), back);
        }
        switchSet(isOn);
    }

    static int freeCount(const QWidget* pPage)
    {
        const auto children = pPage->findChildren<QWidget*>();
        return int(std::count_if(children.begin(), children.end(),
                                 [](const QWidget* pChild) { return isControl(pChild) && pChild->isEnabled(); }));
    }

    /// Changes the control and tells what was sent; then all is as before, which the control shows.
    QString sendingOf(QWidget* pControl)
    {
        const auto before = settings();
        const auto shown = valueOf(pControl);
        const Modals accepting([](QDialog& dialog) { dialog.accept(); });
        const auto* pPage = central().pStackedWidget->currentWidget();
        const int freeBefore = freeCount(pPage);
        auto* pChecked = checkedInGroup(pControl);
        QStringList effects;
        for (const auto& fOperate : operations(pControl))
        {
            board->requestsClear();
            fOperate();
            const int freeNow = freeCount(pPage);
            const auto choice = qobject_cast<QComboBox*>(pControl) ? "\"" + valueOf(pControl) + "\" " : QString();
            effects.append(choice + effect(before));
            const bool isSwitch = qobject_cast<QCheckBox*>(pControl) || qobject_cast<QGroupBox*>(pControl);
            if (isSwitch && freeNow != freeBefore && effects.last() != "nothing")
                effects.last() += QString(" (%1 of %2 free)").arg(freeNow).arg(freeBefore);
            // A box that greys the rest goes back.
            if (effects.last() == "nothing" && freeCount(pPage) >= freeBefore)
                break;
        }
        // A choice that the board knows nothing of.
        if (pChecked && effects.contains("nothing"))
            pChecked->click();
        restore(before);
        // The board has nothing of what a control shows that goes with nothing, or with all as before; and of settings
        // that the page does not read, the control is all there is.
        const bool isUnread = before.empty() && effects.filter("configSet").size() == effects.size();
        EXPECT_TRUE(isUnread || effects.contains("nothing") ||
                    effects.filter(QRegularExpression("nothing$|: as before")).size() == effects.size() ||
                    valueOf(pControl) == shown)
            << str(valueOf(pControl)) << " is shown, " << str(shown) << " is what the board has again";
        if (effects.count("nothing") > 1)
            return "nothing";
        return effects.isEmpty() ? "no choice" : effects.join("; then ");
    }

    /// All that the page offers and does, as text.
    QString transcript(const QString& name)
    {
        QString text;
        QTextStream stream(&text);
        // The loop of the last page may have run for a frame or two.
        exposureSet();
        auto& widget = settled(name);
        switchSet(false);
        const auto before = settings();
        stream << "[" << name << "]" << (widget.objectName() == name ? "" : " stored as " + widget.objectName())
               << "\n";
        QSet<QWidget*> met;
        QString place;
        const auto controls = [&]
        {
            walk(widget,
                 [&](QWidget* pControl)
                 {
                     if (met.contains(pControl) || !pControl->isEnabled())
                         return;
                     met.insert(pControl);
                     SCOPED_TRACE(str(name + " / " + nameOf(pControl)));
                     if (placeOf(widget, pControl) != place)
                         stream << "In " << (place = placeOf(widget, pControl)) << ":\n";
                     stream << nameOf(pControl) << "; " << kindOf(pControl) << "; " << sendingOf(pControl) << "\n";
                 });
        };
        controls();
        // What stands in a group that was off at its turn.
        for (auto* pGroupBox : widget.findChildren<QGroupBox*>())
            if (pGroupBox->isCheckable() && pGroupBox->isVisible() && !pGroupBox->isChecked())
            {
                pGroupBox->setChecked(true);
                controls();
            }
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
        stream << "Shown as on: ";
        for (const auto* pBox : widget.findChildren<QCheckBox*>())
            if (pBox->text().startsWith("Enable ") && pBox->isChecked())
                stream << pBox->text() << ", ";
        stream << "\nFree while on: " << (isAllFree ? "all" : free.join(", ")) << "\n";
        controls();
        stream << "Other labels: ";
        for (const auto* pLabel : widget.findChildren<QLabel*>(QString()))
            if (!pLabel->autoFillBackground() && !pLabel->text().isEmpty() &&
                !(pLabel->buddy() && isControl(pLabel->buddy())))
                stream << pLabel->text() << (pLabel->buddy() && !pLabel->buddy()->isEnabled() ? " (greyed), " : ", ");
        stream << "\nLED: " << off << " | " << led().toolTip() << "\n";
        switchSet(false);
        restore(before);
        return text;
    }

    bool isOn = false; ///< the modules of the page
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
    // A control speaks in the read of these: what they send is what the board has.
    const std::map<QString, std::pair<const char*, const char*>> echoing{
        {"Auto High Dynamic Range", {"Ahdr", "config"}}, {"Global Wide Dynamic Range", {"Wdr", "curve"}}};
    for (const auto& name : names())
    {
        SCOPED_TRACE(str(name));
        const auto echo = echoing.find(name);
        const bool isEchoing = echo != echoing.end();
        const auto record = [&] { return board->recordGet(echo->second.first, 0, echo->second.second); };
        const auto before = isEchoing ? record() : decltype(record())();
        board->requestsClear();
        auto& widget = page(name);
        EXPECT_EQ(writes().size(), isEchoing ? 1u : 0u);
        EXPECT_TRUE(!isEchoing || record() == before);
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
                 const auto steps = operations(pCandidate);
                 if (qobject_cast<QPushButton*>(pCandidate) || steps.empty())
                     return;
                 steps.front()();
                 if (!writes().empty())
                     pControl = pCandidate;
             });
        if (!pControl)
            continue;
        reconnect();
        // A read that fails does not free the way either.
        board->faultSet({board::Fault::Error});
        operations(pControl).front()();
        board->faultsClear();
        QApplication::processEvents();
        EXPECT_TRUE(status().startsWith("Server: ")) << str(status());
        board->requestsClear();
        operations(pControl).front()();
        EXPECT_TRUE(writes().empty()) << nameOf(pControl).toStdString();
        EXPECT_GT(board->requestCount(), 0u) << "read instead";
        QApplication::processEvents();
        EXPECT_EQ(status(), "Not sent: the board's values had not been read yet");
        board->requestsClear();
        operations(pControl).front()();
        EXPECT_GE(writes().size(), 1u) << "read by now";
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
            walk(widget, [&](QWidget* pControl) { text += valueOf(pControl) + " "; });
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

TEST_F(PagesTest, ControlsHaveNamesRoomAndATabOrderThatReads)
{
    open().resize(1280, 960);
    for (const auto& name : names())
    {
        auto& widget = settled(name);
        QApplication::processEvents();
        for (const auto* pArea : widget.findChildren<QScrollArea*>())
            EXPECT_EQ(pArea->horizontalScrollBar()->maximum(), 0) << str(name);
        walk(widget,
             [&](QWidget* pControl)
             {
                 EXPECT_FALSE(nameOf(pControl).isEmpty()) << str(name) << ": " << pControl->metaObject()->className();
                 auto* pLast = pControl->previousInFocusChain();
                 while (pLast != &widget && !(pLast->isVisible() && isControl(pLast)))
                     pLast = pLast->previousInFocusChain();
                 EXPECT_TRUE(pLast == &widget || isReadAfter(pLast, pControl))
                     << str(name) << ": " << str(nameOf(pControl)) << " after " << str(nameOf(pLast));
             });
        for (const auto* pLabel : widget.findChildren<QLabel*>("row-label"))
        {
            ASSERT_TRUE(pLabel->buddy()) << str(pLabel->text());
            EXPECT_FALSE(pLabel->text().isEmpty());
            EXPECT_TRUE(pLabel->buddy()->accessibleName().startsWith(pLabel->text()));
        }
    }
}
