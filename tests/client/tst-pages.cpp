// What holds for every page of the catalogue: a new page is under test the moment it is listed.

#include "board-simulator/source/wire.h"
#include "tests/support/board-fixture.h"
#include "tuning-client/source/control/slider-spin-widget.h"
#include "tuning-client/source/enable-slider-abstract-widget.h"
#include "tuning-common/source/base64.h"
#include "tuning-rest/source/sensor.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <atomic>
#include <chrono>
#include <set>
#include <thread>

using board::Fault;

namespace
{
class PagesTest : public BoardTest
{
protected:
    PagesTest()
    {
        // Auto exposure off frees the controls of the exposure pages and keeps the exposure still.
        for (int generation : {0, 1})
            run(4000104, {{"enable", false}, {"generation", generation}});
        exposureSet();

        QFile file(QString::fromStdString(board->directory()) + "/3aconfig.json");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"ae\": true}");
    }

    /// An exposure that the controls can show to the last digit.
    void exposureSet()
    {
        auto sensor = rest::recordZero<rest::Sensor::Config>();
        const auto bytes = board->recordGet("Sensor", 0);
        std::memcpy(&sensor, bytes.data(), sizeof sensor);
        sensor._long = {2, 0.02f};
        run(80002, {{"config", t_common::Base64::encode(sensor)}});
    }

    /// Talks to the board on the user's actions only, never by itself.
    static bool isRegisterPage(const QString& name) { return name.contains("Register"); }

    /// These show a file of the board or its registers. No module is behind them, so they have no records, and no state
    /// for the LED.
    static bool isModulePage(const QString& name)
    {
        return name != "3A Config" && name != "Calibration Data" && !isRegisterPage(name);
    }

    /// Whether the last read of the page succeeded.
    bool isRead(const QString& name) const
    {
        return isModulePage(name) ? !led().toolTip().isEmpty() : status() == "Request update...";
    }

    void run(int id, std::initializer_list<std::pair<const char*, Json::Value>> arguments)
    {
        Json::Value query;
        query["function"] = "test";
        query["id"] = id;
        for (const auto& [key, value] : arguments)
            query[key] = value;
        const auto answer = board->execute(query);
        ASSERT_EQ(answer["error"].asInt(), 0) << answer;
    }

    static QStringList names()
    {
        QStringList list;
        for (const auto& entry : CentralWidget::catalogue())
            list.append(entry.name);
        return list;
    }

    /// A page that has been shown before, so that start-up timers and first reads are over.
    QWidget& settled(const QString& name)
    {
        auto& widget = page(name);
        emit pMainWindow->refresh();
        emit pMainWindow->refresh();
        return widget;
    }

    /// Commands that change something on the board.
    std::vector<board::Request> writes() const
    {
        std::vector<board::Request> found;
        for (const auto& request : board->requests())
        {
            const auto function = request.query["function"].asString();
            const auto method = function.substr(function.rfind(':') + 1);
            static const std::set<std::string> harmless{"list", "inputInfo", "inputSwitch", "calibrationGet"};
            const bool isRead = method.size() > 3 && method.compare(method.size() - 3, 3, "Get") == 0;
            if (!isRead && !harmless.count(method) && request.id != Fault::Download)
                found.push_back(request);
        }
        return found;
    }

    /// All that a page shows, as one text.
    static QString picture(const QWidget& widget)
    {
        QString text;
        for (const auto* pRow : widget.findChildren<SliderSpinWidget*>())
            text += QString::number(pRow->value(), 'g', 12) + (pRow->isEnabled() ? " " : "- ");
        for (const auto* pButton : widget.findChildren<QAbstractButton*>())
            text += pButton->text() + (pButton->isChecked() ? "+ " : " ");
        for (const auto* pBox : widget.findChildren<QComboBox*>())
            text += pBox->currentText() + " ";
        for (const auto* pLabel : widget.findChildren<QLabel*>())
            text += pLabel->text() + " ";
        return text;
    }
};

/// The names of the fields in which two images of a record differ.
std::set<std::string> fieldsChanged(const std::string& recordName, const std::string& before, const std::string& after)
{
    std::set<std::string> names;
    for (const auto& field : board::Wire::instance().record(recordName).layouts.front().fields)
    {
        const auto size = field.elementSize() * field.elementCount();
        if (before.compare(field.offset, size, after, field.offset, size) != 0)
            names.insert(field.name);
    }
    return names;
}

} // namespace

TEST_F(PagesTest, ShowingWritesNothingAndAHiddenPageIsSilent)
{
    open();
    for (const auto& name : names())
    {
        SCOPED_TRACE(name.toStdString());
        settled(name);
        EXPECT_TRUE(writes().empty()) << writes().front().body;
        pMainWindow->hide();
        board->requestsClear();
        emit pMainWindow->refresh();
        for (auto* pTimer : central().findChildren<QTimer*>())
            EXPECT_FALSE(pTimer->isActive()) << "a hidden page's timer would ask the board";
        EXPECT_EQ(board->requestCount(), 0u);
        pMainWindow->show();
    }
}

TEST_F(PagesTest, WhatWasReadGoesBackByteForByte)
{
    for (const auto& name : names())
    {
        auto* pPage = dynamic_cast<EnableSliderAbstractWidget*>(&settled(name));
        if (!pPage)
            continue;
        SCOPED_TRACE(name.toStdString());
        const int generation = name.endsWith('2') ? 1 : 0;
        const auto before = board->recordGet("Ae", generation);
        board->requestsClear();
        pPage->configSet();
        ASSERT_EQ(writes().size(), 1u);
        EXPECT_EQ(t_common::Base64::decode(writes().front().query["config"].asString()), before);
    }
}

TEST_F(PagesTest, MovingAControlSendsOneCommandThatChangesItsFieldOnly)
{
    int moved = 0;
    for (const auto& name : names())
    {
        // The loop of the last page may have run for a frame or two.
        exposureSet();
        auto& widget = settled(name);
        QVector<QWidget*> controls;
        for (auto* pSlider : widget.findChildren<QSlider*>())
            controls.append(pSlider);
        for (auto* pBox : widget.findChildren<QAbstractSpinBox*>())
            controls.append(pBox);
        for (auto* pBox : widget.findChildren<QComboBox*>())
            controls.append(pBox);
        for (auto* pBox : widget.findChildren<QCheckBox*>())
            controls.append(pBox);
        for (auto* pControl : controls)
        {
            if (!pControl->isVisible() || !pControl->isEnabled() || pControl->accessibleName() == "Module")
                continue;
            SCOPED_TRACE((name + " / " + pControl->accessibleName()).toStdString());
            const auto aeBefore = board->recordGet("Ae", name.endsWith('2') ? 1 : 0);
            const auto sensorBefore = board->recordGet("Sensor", 0);
            board->requestsClear();
            if (auto* pCheckBox = qobject_cast<QCheckBox*>(pControl))
                QTest::keyClick(pCheckBox, Qt::Key_Space);
            else
                QTest::keyClick(pControl, Qt::Key_Down);
            const auto sent = writes();
            const auto label = pControl->accessibleName();
            if (label == "Sample Interval (second)" || label == "Resolution" || isRegisterPage(name))
            {
                EXPECT_TRUE(sent.empty());
                continue;
            }
            ASSERT_EQ(sent.size(), 1u);
            ++moved;
            const auto& query = sent.front().query;
            if (!query.isMember("config"))
            {
                EXPECT_EQ(query["function"].asString(), "rest::Ae::enableSet");
                QTest::keyClick(pControl, Qt::Key_Space);
                continue;
            }
            const bool isAe = query["function"].asString() == "rest::Ae::configSet";
            const auto changed =
                fieldsChanged(isAe ? "rest::Ae::Config" : "rest::Sensor::Config", isAe ? aeBefore : sensorBefore,
                              t_common::Base64::decode(query["config"].asString()));
            EXPECT_EQ(changed.size(), 1u) << testing::PrintToString(changed);
        }
    }
    EXPECT_GE(moved, 25) << "the pages lost their controls";
}

TEST_F(PagesTest, WheelSendsNothing)
{
    for (const auto& name : names())
    {
        auto& widget = settled(name);
        const auto before = picture(widget);
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
        EXPECT_EQ(picture(widget), before) << name.toStdString();
        EXPECT_EQ(board->requestCount(), 0u) << name.toStdString();
    }
}

TEST_F(PagesTest, EveryControlHasAName)
{
    for (const auto& name : names())
    {
        for (const auto* pChild : page(name).findChildren<QWidget*>())
        {
            const auto* pButton = qobject_cast<const QAbstractButton*>(pChild);
            const bool isControl = pButton || qobject_cast<const QComboBox*>(pChild) ||
                                   qobject_cast<const QAbstractSpinBox*>(pChild) ||
                                   qobject_cast<const QSlider*>(pChild);
            if (!isControl || pChild->focusPolicy() == Qt::NoFocus)
                continue;
            EXPECT_FALSE(pChild->accessibleName().isEmpty() && (!pButton || pButton->text().isEmpty()))
                << name.toStdString() << ": " << pChild->metaObject()->className();
        }
    }
}

namespace
{
struct FaultCase
{
    Fault::Kind kind;
    const char* text; ///< what the status bar says, or a part of it
};

/// Failures in every reading command.
const FaultCase faultCases[] = {
    {Fault::Error, "Server: "},
    {Fault::ErrorBare, "REST: rest::"},
    {Fault::MessageControl, "Server: "},
    {Fault::MessageLong, "Server: "},
    {Fault::NotJson, "JSON"},
    {Fault::JsonCut, "JSON"},
    {Fault::Nesting, "nest"},
    {Fault::AnswerArray, "object"},
    {Fault::AnswerNumber, "object"},
    {Fault::AnswerEmpty, "0 bytes"},
    {Fault::RandomBytes, "bytes"},
    {Fault::WrongTypes, "\""},
    {Fault::Silence, "failed"},
    {Fault::Drip, "failed"},
    {Fault::Close, "failed"},
    {Fault::ResetInBody, "failed"},
    {Fault::BodyShort, "failed"},
    {Fault::ChunkedCut, "failed"},
    {Fault::HeadHuge, "failed"},
    {Fault::NotHttp, "failed"},
};

/// A file has no answer that could be wrong, and all the time that it takes as long as something comes.
bool isForFiles(Fault::Kind kind) { return kind >= Fault::Close; }

const Fault::Kind harmlessKinds[] = {Fault::Chunked,  Fault::NoLength, Fault::HttpStatus, Fault::NoReason,
                                     Fault::Continue, Fault::Pieces,   Fault::Delay};
} // namespace

TEST_F(PagesTest, FailingBoardLeavesItsTextAndTheControlsAsTheyWere)
{
    for (const auto& name : names())
    {
        if (isRegisterPage(name))
            continue;
        auto& widget = settled(name);
        for (const auto& fault : faultCases)
        {
            if (name == "3A Config" && !isForFiles(fault.kind))
                continue;
            SCOPED_TRACE(name.toStdString() + ", fault " + std::to_string(int(fault.kind)));
            const auto before = picture(widget);
            Fault struck;
            struck.kind = fault.kind;
            struck.amount = fault.kind == Fault::Drip ? 200 : 0;
            board->faultSet(struck);
            pMainWindow->statusBar()->clearMessage();
            emit pMainWindow->refresh();
            board->faultsClear();
            EXPECT_TRUE(status().contains(fault.text, Qt::CaseInsensitive)) << status().toStdString();
            EXPECT_LE(status().toUtf8().size(), 4096 + 3);
            for (auto character : status())
                EXPECT_GE(character.unicode(), 0x20);
            EXPECT_EQ(picture(widget), before);
            EXPECT_TRUE(led().toolTip().isEmpty()) << "grey after a failed read";
        }
        emit pMainWindow->refresh();
        EXPECT_TRUE(isRead(name)) << "the page works again";
    }
}

TEST_F(PagesTest, UnusualButSoundAnswersAreTaken)
{
    for (const auto& name : names())
    {
        settled(name);
        for (auto kind : harmlessKinds)
        {
            Fault struck;
            struck.kind = kind;
            struck.amount = kind == Fault::Delay ? 50 : 0;
            board->faultSet(struck);
            emit pMainWindow->refresh();
            board->faultsClear();
            EXPECT_TRUE(isRead(name)) << name.toStdString() << ", fault " << kind;
        }
    }
}

TEST_F(PagesTest, RecordsOfAnyBytesAreShownOrRefused)
{
    std::string odd;
    for (int i = 0; i < 4096; ++i)
        odd += char(i % 5 == 0 ? 0xff : i * 77);
    const auto text = [&](char fill, size_t size)
    { return t_common::Base64::encode(std::string(size, fill).data(), unsigned(size)); };
    for (const auto& name : names())
    {
        if (!isModulePage(name))
            continue;
        SCOPED_TRACE(name.toStdString());
        settled(name);
        for (char fill : {'\xff', '\x7f', '\x80', '\x02'})
        {
            for (int id : {4000101, 80001, 80007, 4000106})
                board->answerSet(id, id == 80007 || id == 4000106 ? "status" : "config",
                                 text(fill, id == 4000101 ? 36
                                            : id == 80001 ? 44
                                            : id == 80007 ? 68
                                                          : 1536));
            emit pMainWindow->refresh();
            for (auto* pTimer : central().pStackedWidget->currentWidget()->findChildren<QTimer*>())
                QMetaObject::invokeMethod(pTimer, "timeout");
            board->answersClear();
            emit pMainWindow->refresh();
        }
        for (const auto kind : {Fault::RecordShort, Fault::RecordLong, Fault::Base64Broken})
        {
            board->faultSet({kind});
            emit pMainWindow->refresh();
            board->faultsClear();
            EXPECT_EQ(status(), "Base64 decode failed: object size not match");
        }
    }
}

TEST_F(PagesTest, DeadBoardLeavesTheUserHisClicks)
{
    for (int generation : {0, 1})
        run(4000104, {{"enable", true}, {"generation", generation}});
    for (const auto& name : names())
    {
        SCOPED_TRACE(name.toStdString());
        auto& widget = settled(name);
        board->requestsClear();
        bool isPolling = false;
        for (auto* pTimer : widget.findChildren<QTimer*>())
            isPolling = isPolling || (pTimer->isActive() && !pTimer->isSingleShot());
        if (!isPolling)
            continue;
        board->faultSet({Fault::Silence});
        // Clicks at odd moments, each waiting its turn in the event loop as a mouse event does.
        std::atomic<int> served{0};
        std::atomic<long> worst{0};
        constexpr int clicks = 12;
        std::thread user(
            [&]
            {
                for (int i = 0; i < clicks; ++i)
                {
                    const auto start = std::chrono::steady_clock::now();
                    QMetaObject::invokeMethod(
                        pMainWindow.get(),
                        [&, start]
                        {
                            const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(
                                std::chrono::steady_clock::now() - start);
                            worst = std::max<long>(worst, waited.count());
                            ++served;
                        },
                        Qt::QueuedConnection);
                    std::this_thread::sleep_for(std::chrono::milliseconds(617));
                }
            });
        EXPECT_TRUE(QTest::qWaitFor([&] { return served == clicks; }, 60000));
        user.join();
        board->faultsClear();
        EXPECT_GE(board->requestCount(), 2u) << "the page did not poll";
        EXPECT_LE(worst, 2500) << "time limit of 2 s and half a second";
    }
}
