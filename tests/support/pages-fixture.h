#pragma once

#include "tests/support/board-fixture.h"
#include "tuning-rest/source/sensor.h"

#include <set>
#include <string>
#include <vector>

/// All pages of the catalogue, one after the other, against a board that holds still.
class PagesTest : public BoardTest
{
protected:
    PagesTest()
    {
        // Auto exposure and white balance off free the controls of the pages that tune by hand, and keep the exposure
        // still.
        aeEnable(false);
        boardSwitch("Awb::enableSet"_id, false);
        exposureSet();
        QFile file(QString::fromStdString(board->directory()) + "/3aconfig.json");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"ae\": true}");
    }

    /// An exposure that the controls can show to the last digit.
    void exposureSet()
    {
        auto sensor = record<rest::Sensor::Config>("Sensor");
        sensor._long = {2, 0.02f};
        recordSet("Sensor", sensor);
    }

    /// A page that has been shown before, so that start-up timers and first reads are over.
    QWidget& settled(const QString& name)
    {
        auto& widget = page(name);
        emit pMainWindow->refresh();
        emit pMainWindow->refresh();
        return widget;
    }

    /// The commands by which the page reads.
    std::vector<board::Request> reads()
    {
        board->requestsClear();
        emit pMainWindow->refresh();
        std::vector<board::Request> found;
        for (const auto& request : board->requests())
            if (request.query.isMember("function"))
                found.push_back(request);
        return found;
    }

    /// Commands that change something on the board.
    std::vector<board::Request> writes() const
    {
        std::vector<board::Request> found;
        for (const auto& request : board->requests())
        {
            const auto function = request.query["function"].asString();
            const auto method = function.substr(function.rfind(':') + 1);
            static const std::set<std::string> harmless{"list", "inputInfo", "inputSwitch"};
            const bool isRead = method.size() > 3 && method.compare(method.size() - 3, 3, "Get") == 0;
            if (!isRead && !harmless.count(method) && request.id != board::Fault::Download)
                found.push_back(request);
        }
        return found;
    }

    /// The last read of the page has succeeded: no failure stands in the status bar.
    bool isRead() const { return status() == "Request update..."; }
};
