#pragma once

#include "tests/support/board-fixture.h"
#include "tuning-rest/source/ae.h"

#include <stdexcept>

constexpr int enableGetId = 4000103;

inline bool isGrey(const QLabel* pLed)
{
    return pLed->toolTip().isEmpty() &&
           pLed->pixmap(Qt::ReturnByValue).toImage() == QPixmap(":/images/gray.png").toImage();
}

/// A page as the catalogue has them, which tells what happens to it.
class ReadingPage : public AbstractWidget
{
public:
    explicit ReadingPage(const QString& name = "Reading", Role role_ = Role::Page, QWidget* pParent = nullptr)
        : AbstractWidget(pParent, name, false, role_)
    {
    }

    using AbstractWidget::connectSwitch;
    using AbstractWidget::connectTick;
    using AbstractWidget::ledWordsSet;

    void configGet() override
    {
        AbstractWidget::configGet();
        steps += "configGet";
        if (isConfigGetFailing)
            throw std::runtime_error("configGet failed");
    }

    void configSet(bool isDefault) override
    {
        steps += isDefault ? "write default" : "write";
        throw std::runtime_error("configSet failed");
    }

    void updateStatus() override
    {
        const auto* pLed = statusBarLabel("LED");
        steps += !pLed ? "read" : isGrey(pLed) ? "read, grey" : "read, " + pLed->toolTip();
        message = statusBar() ? statusBar()->currentMessage() : "none";
        if (fInRead)
            fInRead();
        bool isEnable = false;
        rest::Ae().enableGet(isEnable, rest::Ae::V1);
        statusBarLabelLed(isEnable, isEnable ? "Reading ON" : "Reading OFF");
    }

    QSize sizeHint() const override { return {1400, 900}; }

    void paintEvent(QPaintEvent* pEvent) override
    {
        ++paints;
        AbstractWidget::paintEvent(pEvent);
    }

    std::string taken()
    {
        const auto text = steps.join("; ").toStdString();
        steps.clear();
        return text;
    }

    int paints = 0;
    QStringList steps;
    QString message; ///< in the status bar while the page read last
    bool isConfigGetFailing = false;
    std::function<void()> fInRead;
};

class PageBaseTest : public BoardTest
{
protected:
    PageBaseTest()
    {
        config.widget.jRoot = {};
        open();
        // The auto exposure page comes first: away from its timer.
        central().pStackedWidget->setCurrentWidget(pEmpty);
        board->requestsClear();
        for (auto* pPage : pMainWindow->findChildren<AbstractWidget*>())
            pPage->sizeStore = pMainWindow->size();
    }

    ~PageBaseTest() override { config.preferences.window.isAutoResize = false; }

    MainWindow& open()
    {
        auto& window = BoardTest::open();
        pEmpty = new QWidget;
        central().pStackedWidget->addWidget(pEmpty);
        return window;
    }

    template <class Page>
    Page& add(Page* pPage)
    {
        central().pStackedWidget->addWidget(pPage);
        return *pPage;
    }

    void show(QWidget* pWidget) { central().pStackedWidget->setCurrentWidget(pWidget); }

    /// The text in the status bar stays until the next one.
    bool isStatusLasting() const { return !pMainWindow->statusBar()->findChild<QTimer*>(); }

    QWidget* pEmpty;
};
