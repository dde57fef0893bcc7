#include "tuning-client/source/control/text-delegate.h"

#include "tuning-common/source/limits.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStatusTipEvent>
#include <QTextDocument>
#include <QToolTip>

namespace
{
constexpr int refusedLength = 40;

/// Whether the key confirms the text.
bool isConfirming(const QEvent* pEvent)
{
    if (pEvent->type() != QEvent::KeyPress)
        return false;
    const auto key = static_cast<const QKeyEvent*>(pEvent)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

/// Says in the status bar of the window around the editor what it does not take, and what it does.
void refusalTell(QLineEdit* pLineEdit, const QString& refused)
{
    QStatusTipEvent event(TextDelegate::tr("%1 is not taken: %2").arg(refused, pLineEdit->accessibleDescription()));
    QApplication::sendEvent(pLineEdit, &event);
}

void mark(QLineEdit* pLineEdit)
{
    refusalTell(pLineEdit, '"' + pLineEdit->text().left(refusedLength) + '"');
    auto palette = pLineEdit->palette();
    palette.setColor(QPalette::Base, QColor(0xff, 0xd6, 0xd6));
    pLineEdit->setPalette(palette);
    // The colour alone would not do.
    QToolTip::showText(pLineEdit->mapToGlobal({0, pLineEdit->height()}), pLineEdit->toolTip(), pLineEdit);
}
} // namespace

ValueValidator::ValueValidator(const QRegularExpression& expression, std::function<bool(const QString&)> fIsValue_)
    : QRegularExpressionValidator(expression), fIsValue(std::move(fIsValue_))
{
}

QValidator::State ValueValidator::validate(QString& input, int& pos) const
{
    const auto state = QRegularExpressionValidator::validate(input, pos);
    return state == Acceptable && !fIsValue(input) ? Intermediate : state;
}

QString TextDelegate::displayText(const QVariant& value, const QLocale& locale) const
{
    const bool isText = value.userType() == QMetaType::QString;
    return QStyledItemDelegate::displayText(isText ? value.toString().left(t_common::limit::cellText) : value, locale);
}

QLineEdit* TextDelegate::lineEditMake(QWidget* pParent, QValidator* pValidator, bool isNumber, const QString& expected)
{
    auto* pLineEdit = new QLineEdit(pParent);
    pLineEdit->setFrame(false);
    pLineEdit->setAccessibleName(tr("Value"));
    pLineEdit->setAccessibleDescription(tr("%1. Escape leaves the old value.").arg(expected));
    // Plain: what is expected may be told by an example from the board.
    pLineEdit->setToolTip(Qt::convertFromPlainText(pLineEdit->accessibleDescription()));
    if (isNumber)
        pLineEdit->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    pValidator->setParent(pLineEdit);
    pLineEdit->setValidator(pValidator);
    connect(pLineEdit, &QLineEdit::textChanged, pLineEdit,
            [pLineEdit]
            {
                if (pLineEdit->hasAcceptableInput())
                    pLineEdit->setPalette(QPalette());
            });
    connect(pLineEdit, &QLineEdit::inputRejected, pLineEdit,
            [pLineEdit] { refusalTell(pLineEdit, tr("What was typed")); });
    return pLineEdit;
}

void TextDelegate::textShow(QLineEdit* pLineEdit, const QString& text)
{
    // A longer text than usual must not come back cut.
    pLineEdit->setMaxLength(qMax(pLineEdit->maxLength(), text.size() + 1000));
    pLineEdit->setText(text);
}

bool TextDelegate::isEntered(const QWidget* pEditor)
{
    const auto* pLineEdit = qobject_cast<const QLineEdit*>(pEditor);
    return pLineEdit && pLineEdit->isModified() && pLineEdit->hasAcceptableInput();
}

bool TextDelegate::isKept(QWidget* pEditor)
{
    auto* pLineEdit = qobject_cast<QLineEdit*>(pEditor);
    if (!pLineEdit || !pLineEdit->isModified() || pLineEdit->hasAcceptableInput())
        return false;
    mark(pLineEdit);
    return true;
}

bool TextDelegate::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    // Neither is left to the base, which would set the text anew and forget that the user has typed it.
    auto* pLineEdit = qobject_cast<QLineEdit*>(pWatched);
    if (pLineEdit && isConfirming(pEvent) && pLineEdit->isModified() && !pLineEdit->hasAcceptableInput())
    {
        mark(pLineEdit);
        return true;
    }
    if (pEvent->type() == QEvent::FocusOut && isKept(pLineEdit))
        return false;
    return QStyledItemDelegate::eventFilter(pWatched, pEvent);
}
