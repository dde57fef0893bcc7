#include "tuning-client/source/control/console-widget.h"

#include "tuning-common/source/limits.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextOption>

#include <algorithm>

namespace
{
constexpr int lineCount = 100;
constexpr int pendingLimit = t_common::limit::reportText;

QByteArray lastLines(const QByteArray& text)
{
    int newlines = 0;
    for (int i = text.size() - 1; i >= 0; --i)
        if (text[i] == '\n' && ++newlines == lineCount)
            return text.mid(i + 1);
    return text;
}

// The document takes NUL and its like for characters without a picture.
QString visible(QString text)
{
    for (auto& character : text)
    {
        const auto code = character.unicode();
        if (code < 0x20 && code != '\n' && code != '\r' && code != '\t')
            character = QChar(0x2400 + code);
    }
    return text;
}
} // namespace

ConsoleWidget::ConsoleWidget(QWidget* parent) : QPlainTextEdit(parent)
{
    document()->setMaximumBlockCount(lineCount);
    setUndoRedoEnabled(false);
    setReadOnly(true);
    // A record is one word of up to a megabyte: looking for a better place to break it takes half a minute.
    setWordWrapMode(QTextOption::WrapAnywhere);
    setAccessibleName(tr("Transfer"));

    auto colours = palette();
    colours.setColor(QPalette::Base, Qt::gray);
    colours.setColor(QPalette::Text, Qt::blue);
    setPalette(colours);
}

ConsoleWidget& ConsoleWidget::operator<<(const std::string& text)
{
    const auto size = std::min<std::size_t>(text.size(), pendingLimit);
    putData(QByteArray(text.data() + text.size() - size, static_cast<int>(size)));
    return *this;
}

ConsoleWidget& ConsoleWidget::operator<<(const QString& text)
{
    putData(text.toUtf8());
    return *this;
}

void ConsoleWidget::putData(const QByteArray& text)
{
    const QMutexLocker locker(&mutex);
    pending += text;
    if (pending.size() > 2 * pendingLimit)
        pending = pending.right(pendingLimit);
    if (!isFlushQueued)
        isFlushQueued = QMetaObject::invokeMethod(this, &ConsoleWidget::flush, Qt::QueuedConnection);
}

void ConsoleWidget::flush()
{
    {
        const QMutexLocker locker(&mutex);
        isFlushQueued = false;
    }
    // The document lays out each line that it takes in or drops, which would cost more than the exchange it tells of.
    if (isVisible())
    {
        appendPending();
        scrollToEnd();
    }
}

void ConsoleWidget::appendPending()
{
    QByteArray text;
    {
        const QMutexLocker locker(&mutex);
        text.swap(pending);
    }
    text = lastLines(text.right(pendingLimit));

    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    cursor.insertText(visible(QString::fromUtf8(text.constData(), text.size())));
    const int excess = document()->blockCount() - lineCount;
    if (excess > 0)
    {
        cursor.setPosition(0);
        cursor.setPosition(document()->findBlockByNumber(excess).position(), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
    cursor.endEditBlock();
}

void ConsoleWidget::scrollToEnd() { verticalScrollBar()->setValue(verticalScrollBar()->maximum()); }

QString ConsoleWidget::toPlainText()
{
    appendPending();
    return QPlainTextEdit::toPlainText();
}

void ConsoleWidget::setLocalEchoEnabled(bool isEnabled)
{
    m_localEchoEnabled = isEnabled;
    setReadOnly(!isEnabled);
}

QSize ConsoleWidget::sizeHint() const { return {QPlainTextEdit::sizeHint().width(), 8 * fontMetrics().lineSpacing()}; }

void ConsoleWidget::keyPressEvent(QKeyEvent* pEvent)
{
    switch (pEvent->key())
    {
    case Qt::Key_Backspace:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        return;
    default:
        if (m_localEchoEnabled)
            QPlainTextEdit::keyPressEvent(pEvent);
        emit getData(pEvent->text().toLocal8Bit());
    }
}

void ConsoleWidget::mousePressEvent(QMouseEvent*) { setFocus(); }

void ConsoleWidget::mouseDoubleClickEvent(QMouseEvent*) {}

void ConsoleWidget::contextMenuEvent(QContextMenuEvent*) {}

void ConsoleWidget::showEvent(QShowEvent* pEvent)
{
    QPlainTextEdit::showEvent(pEvent);
    appendPending();
    scrollToEnd();
}
