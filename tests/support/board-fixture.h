#pragma once

#include "board-simulator/source/simulator.h"
#include "tests/support/actions.h"
#include "tests/support/command-id.h"
#include "tests/support/files.h"
#include "tests/support/modals.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/application.h"
#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/config/config.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-common/source/base64.h"
#include "tuning-rest/source/record.h"

#include <chrono>
#include <cstring>
#include <functional>
#include <memory>
#include <thread>

/// The real window against a simulated board of its own, on a chip that has every page of the catalogue.
class BoardTest : public testing::Test
{
protected:
    BoardTest()
    {
        QDir("board").removeRecursively();
        board = std::make_unique<board::Simulator>(board::Options{0, "board"});
        config.preferences.server.http.collection = {{"127.0.0.1", board->port()}};
        config.preferences.server.http.index = 0;
        config.preferences.server.type = "http";

        QDir("chip").removeRecursively();
        chips.chips.clear();
        chipWrite("Full", names());
        config.setting.chipName = "Full";
    }

    ~BoardTest() override
    {
        EXPECT_EQ(Application::slipped(), slippedBefore) << "an exception passed no failure guard";
    }

    /// Of all pages.
    static QStringList names()
    {
        QStringList list;
        for (const auto& entry : CentralWidget::catalogue())
            list.append(entry.name);
        return list;
    }

    static void chipWrite(const QString& name, const QStringList& pages, int inputs = 2, int cores = 2)
    {
        QDir().mkpath("chip");
        QFile file("chip/" + name + ".xml");
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        QString text = QString("<Table ChipName=\"%1\" InputMax=\"%2\" IspMax=\"%3\" Version=\"1\">")
                           .arg(name)
                           .arg(inputs)
                           .arg(cores);
        for (const auto& page : pages)
            text += QString("<Page Name=\"%1\" Type=\"isp\" Level=\"1\"/>").arg(page);
        file.write((text + "</Table>").toUtf8());
        file.close();
        chips.searchChips();
    }

    /// Builds the window and shows it.
    MainWindow& open()
    {
        pMainWindow = std::make_unique<MainWindow>(nullptr, Qt::WindowFlags());
        pMainWindow->show();
        return *pMainWindow;
    }

    CentralWidget& central() { return *qobject_cast<CentralWidget*>(pMainWindow->centralWidget()); }

    /// Opens the window where needed and shows the page of that name.
    QWidget& page(const QString& name)
    {
        if (!pMainWindow)
            open();
        int index = 0;
        while (index < chips.chip.pages.size() && chips.chip.pages[index].name != name)
            ++index;
        central().setCurrentIndex(index);
        return *central().pStackedWidget->currentWidget();
    }

    /// Shows the page of that name, laid out, and forgets what it has asked.
    template <class Page>
    Page& shown(const char* name)
    {
        auto& widget = dynamic_cast<Page&>(page(name));
        QApplication::processEvents();
        board->requestsClear();
        return widget;
    }

    void refresh() { emit pMainWindow->refresh(); }

    static void tick(QTimer* pTimer) { QMetaObject::invokeMethod(pTimer, "timeout"); }

    QString status() const { return pMainWindow->statusBar()->currentMessage(); }

    QLabel& led() const { return *pMainWindow->statusBar()->findChild<QLabel*>("LED"); }

    /// The bytes of a record of the board.
    template <class Record>
    Record record(const char* className, const char* key = "config", int generation = 0)
    {
        const auto bytes = board->recordGet(className, generation, key);
        EXPECT_EQ(bytes.size(), sizeof(Record));
        auto value = rest::recordZero<Record>();
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }

    /// The bytes of a record, to be compared.
    template <class Record>
    static std::string bytes(const Record& value)
    {
        return {reinterpret_cast<const char*>(&value), sizeof value};
    }

    /// The board has that record, as if it had been sent.
    template <class Record>
    void recordSet(const char* className, const Record& value, int generation = 0, const char* key = "config")
    {
        board->recordSet(className, generation, bytes(value), key);
    }

    /// The board refuses that command from now on.
    void refuse(int64_t id) { board->faultSet({board::Fault::Error, id, -1, 0, "not now"}); }

    /// The board answers with that record from now on.
    template <class Record>
    void answerSet(int64_t id, const char* key, const Record& value)
    {
        board->answerSet(id, key, t_common::Base64::encode(value));
    }

    /// Switches the exposure loop of both generations: while it runs, the board's records change by themselves.
    void aeEnable(bool isEnable)
    {
        for (const int generation : {0, 1})
            boardSwitch(4000104, isEnable, generation);
    }

    /// Switches a block of the board by the command of that number.
    void boardSwitch(int64_t id, bool isEnable, int generation = -1)
    {
        Json::Value query;
        if (generation >= 0)
            query["generation"] = generation;
        query["enable"] = isEnable;
        run(id, query);
    }

    /// The board carries out the command of that number, as if it had been sent; what it answers.
    Json::Value run(int64_t id, Json::Value query)
    {
        query["function"] = "test";
        query["id"] = Json::Int64(id);
        const auto answer = board->execute(query);
        EXPECT_EQ(answer["error"].asInt(), 0) << answer;
        return answer;
    }

    /// A new connection to the same board: what was read before came through another one.
    void reconnect()
    {
        auto jConfig = clientConfig("http", std::to_string(board->port()));
        pMainWindow->clientHolderSet(jConfig);
    }

    /// A board at a serial line takes the place of the one at the network; the next window uses it.
    void serialUse()
    {
        pMainWindow.reset();
        board.reset();
        board = std::make_unique<board::Simulator>(board::Options{0, "board", false, true});
        config.preferences.server.type = "uart";
        config.preferences.server.uart.port = QString::fromStdString(board->serialName());
    }

    /// What the window makes a client from.
    static Json::Value clientConfig(const std::string& type, const std::string& port)
    {
        Json::Value jConfig;
        jConfig["type"] = type;
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = port;
        return jConfig;
    }

    /// What the last command of that number carried, null for none.
    Json::Value lastQuery(int64_t id) const
    {
        Json::Value jQuery;
        for (const auto& request : board->requests())
            if (request.id == id)
                jQuery = request.query;
        return jQuery;
    }

    /// Commands of that number since the last `requestsClear`.
    size_t sent(int64_t id) const { return board->count(id); }

    /// Runs `fMeanwhile` on another thread while `action` waits for the board's answer to `id`.
    void during(int64_t id, const std::function<void()>& action, const std::function<void()>& fMeanwhile)
    {
        board->faultSet({board::Fault::Delay, id, 1, 300});
        board->requestsClear();
        std::thread other(
            [&]
            {
                for (int i = 0; i < waitLimit() && board->count(id) == 0; ++i)
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
                fMeanwhile();
            });
        action();
        other.join();
    }

    /// Whether the wait cursor stands for as long as `action` waits.
    bool hasWaitCursor(int64_t id, const std::function<void()>& action)
    {
        bool isWaiting = false;
        during(id, action,
               [&]
               {
                   // The GUI thread stands in the exchange.
                   const auto* pCursor = QApplication::overrideCursor();
                   isWaiting = pCursor && pCursor->shape() == Qt::WaitCursor;
               });
        return isWaiting && !QApplication::overrideCursor();
    }

    /// The user closes the window while `action` waits, and then the window goes.
    void closedDuring(int64_t id, const std::function<void()>& action)
    {
        during(id, action,
               [this] { QMetaObject::invokeMethod(pMainWindow.get(), &QWidget::close, Qt::QueuedConnection); });
        EXPECT_TRUE(pMainWindow->isVisible()) << "closed in the middle of an exchange";
        QApplication::processEvents();
        EXPECT_FALSE(pMainWindow->isVisible());
        pMainWindow.reset();
    }

    std::unique_ptr<board::Simulator> board;
    std::unique_ptr<MainWindow> pMainWindow;
    int slippedBefore = Application::slipped();
};
