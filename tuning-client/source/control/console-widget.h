#pragma once

#include <QByteArray>
#include <QMutex>
#include <QPlainTextEdit>

#include <string>

/// The text pane of the Transfer dock: the last 100 lines of the traffic with the board.
///
/// Text may come on any thread. It is gathered and appears with the next turn of the GUI thread's event loop, in one
/// piece, so that a burst of traffic costs one append. Of what piles up in between, only what the last lines can show
/// is kept.
class ConsoleWidget : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit ConsoleWidget(QWidget* parent = nullptr);

    ConsoleWidget& operator<<(const std::string& text);
    ConsoleWidget& operator<<(const QString& text);

    /// Appends UTF-8 text at the end and scrolls to it, whatever the user did to the cursor.
    void putData(const QByteArray& text);

    /// The text, and what waits for the next turn or for the pane to be shown.
    QString toPlainText();

    /// Whether typed keys are shown. Without echo, the state after construction, the pane is read-only.
    void setLocalEchoEnabled(bool isEnabled);

    /// Some lines: the pages need the height more.
    QSize sizeHint() const override;

signals:
    void getData(const QByteArray& text);

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    void mousePressEvent(QMouseEvent* pEvent) override;
    void mouseDoubleClickEvent(QMouseEvent* pEvent) override;
    void contextMenuEvent(QContextMenuEvent* pEvent) override;
    void showEvent(QShowEvent* pEvent) override;

private:
    void flush();
    void appendPending();
    void scrollToEnd();

    bool m_localEchoEnabled = false;
    QMutex mutex;
    QByteArray pending;
    bool isFlushQueued = false;
};
