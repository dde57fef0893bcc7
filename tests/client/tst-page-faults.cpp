// What a board that fails, is silent or sends odd values does to the pages of the catalogue.

#include "tests/support/page-walk.h"
#include "tests/support/pages-fixture.h"
#include "tuning-client/source/control/slider-spin-widget.h"

using board::Fault;

namespace
{
class PageFaultsTest : public PagesTest
{
protected:
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

    /// Whether the page asks the board for anything when it is read; some do so on the user's actions only.
    bool isAsking()
    {
        board->requestsClear();
        emit pMainWindow->refresh();
        return board->requestCount() > 0;
    }

    /// Reads the page of a failing board: the text is in the status bar, all else as it was.
    void failureExpect(const QString& name, const Fault& fault, const char* text)
    {
        auto& widget = *central().pStackedWidget->currentWidget();
        SCOPED_TRACE(str(name) + ", fault " + std::to_string(int(fault.kind)));
        const auto before = picture(widget);
        board->faultSet(fault);
        pMainWindow->statusBar()->clearMessage();
        emit pMainWindow->refresh();
        board->faultsClear();
        EXPECT_TRUE(status().contains(text, Qt::CaseInsensitive)) << str(status());
        EXPECT_LE(status().toUtf8().size(), 4096 + 3);
        for (auto character : status())
            EXPECT_GE(character.unicode(), 0x20);
        EXPECT_EQ(str(picture(widget)), str(before));
        EXPECT_TRUE(led().toolTip().isEmpty()) << "grey after a failed read";
        emit pMainWindow->refresh();
        EXPECT_TRUE(isRead()) << "the page works again, and the failure is gone: " << str(status());
    }
};
} // namespace

TEST_F(PageFaultsTest, EveryFailureLeavesItsTextAndTheControlsAsTheyWere)
{
    const struct
    {
        Fault::Kind kind;
        const char* text; ///< what the status bar says, or a part of it
        uint64_t amount = 0;
    } faults[] = {
        {Fault::Error, "Server: "},
        {Fault::ErrorBare, "REST: rest::"},
        {Fault::MessageControl, "Server: "},
        {Fault::MessageLong, "Server: "},
        {Fault::NotJson, "JSON"},
        {Fault::JsonCut, "JSON"},
        {Fault::Nesting, "nest"},
        {Fault::AnswerArray, "no object but \"[]\""},
        {Fault::AnswerNumber, "2 bytes \"42\""},
        {Fault::AnswerEmpty, "0 bytes"},
        {Fault::RandomBytes, "bytes"},
        {Fault::WrongTypes, "\""},
        {Fault::RecordShort, "Base64 decode failed: object size not match"},
        {Fault::RecordLong, "Base64 decode failed: object size not match"},
        {Fault::Base64Broken, "Base64 decode failed: object size not match"},
        {Fault::Silence, "failed"},
        {Fault::Drip, "failed", 200},
        {Fault::Close, "failed"},
        {Fault::ResetInBody, "failed"},
        {Fault::BodyShort, "failed"},
        {Fault::ChunkedCut, "failed"},
        {Fault::HeadHuge, "failed"},
        {Fault::NotHttp, "failed"},
    };
    const auto name = "Auto Exposure";
    settled(name);
    for (const auto& fault : faults)
        failureExpect(name, {fault.kind, Fault::Everything, -1, fault.amount}, fault.text);
}

TEST_F(PageFaultsTest, EveryPageTellsOfAnErrorAClosedConnectionAndSilence)
{
    for (const auto& name : names())
    {
        settled(name);
        if (!isAsking())
            continue;
        if (!reads().empty())
            failureExpect(name, {Fault::Error}, "Server: ");
        failureExpect(name, {Fault::Close}, "failed");

        // Showing reads twice, and inner pages read as well: the first silence is enough for all of them.
        pMainWindow->hide();
        board->faultSet({Fault::Silence});
        QElapsedTimer clock;
        clock.start();
        pMainWindow->show();
        EXPECT_LT(clock.elapsed(), 2500) << str(name);
        EXPECT_TRUE(status().contains("failed")) << str(name) << ": " << str(status());
        board->faultsClear();
        emit pMainWindow->refresh();
        EXPECT_TRUE(isRead());
    }
}

// These grey by their box even if the board refuses the switch; the others wait for it.
TEST_F(PageFaultsTest, RefusedSwitchGreysByTheRuleOfItsPage)
{
    const QStringList greying{"Auto Focus",
                              "Auto Video Stabilization",
                              "Color Adjustment",
                              "Color Processing",
                              "Defect Pixel Cluster Correction",
                              "High Dynamic Range 1.2",
                              "Lens Shading Correction",
                              "Super Impose"};
    int switches = 0;
    for (const auto& name : names())
    {
        const auto& widget = settled(name);
        const auto boxes = widget.findChildren<QCheckBox*>();
        const auto found =
            std::find_if(boxes.begin(), boxes.end(),
                         [](auto* pBox) { return pBox->text().startsWith("Enable ") && pBox->isVisible(); });
        if (found == boxes.end())
            continue;
        ++switches;
        const auto clicked = [&]
        {
            (*found)->click();
            QVector<bool> free;
            for (const auto* pChild : widget.findChildren<QWidget*>())
                free.append(pChild->isEnabled());
            return free;
        };
        const auto done = clicked();
        const auto before = clicked();
        board->faultSet({Fault::Error});
        const auto refused = clicked();
        EXPECT_TRUE(status().startsWith("Server: ")) << str(name);
        const bool isGreying = greying.contains(name);
        EXPECT_TRUE(!isGreying || done != before) << str(name);
        EXPECT_EQ(refused, isGreying ? done : before) << str(name);
        board->faultsClear();
    }
    EXPECT_GT(switches, 30);
}

TEST_F(PageFaultsTest, ValuesOfAnyKindAreShownOrRefused)
{
    for (const auto& name : names())
    {
        SCOPED_TRACE(str(name));
        auto& widget = settled(name);
        for (int round = 0; round < 6; ++round)
        {
            for (const auto& request : reads())
            {
                const Service service(request.query);
                for (const auto& key :
                     board::Keys::instance().answer(service.className, service.method, service.generationName()))
                {
                    static const char fills[] = {'\xff', '\x7f', '\x80', '\x02', '\x00', '\x01'};
                    static const Json::Value plain[] = {1e300, -2147483647 - 1, 4294967295u, "text",
                                                        true,  Json::Value()};
                    const auto record = key.recordName();
                    const auto size = record.empty() ? 0 : board::Wire::instance().record(record).size;
                    const std::string bytes(size, fills[round]);
                    board->answerSet(request.id, key.name,
                                     record.empty()
                                         ? plain[round]
                                         : Json::Value(t_common::Base64::encode(bytes.data(), unsigned(size))));
                }
            }
            emit pMainWindow->refresh();
            for (auto* pTimer : widget.findChildren<QTimer*>())
                QMetaObject::invokeMethod(pTimer, "timeout");
            board->answersClear();
            emit pMainWindow->refresh();
            EXPECT_TRUE(isRead()) << str(status());
        }
    }
}
