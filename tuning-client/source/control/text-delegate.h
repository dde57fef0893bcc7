#pragma once

#include <QAbstractItemView>
#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>

#include <functional>

class QLineEdit;

/// Texts that match a pattern and stand for a value as well.
class ValueValidator : public QRegularExpressionValidator
{
    Q_OBJECT

public:
    ValueValidator(const QRegularExpression& expression, std::function<bool(const QString&)> fIsValue);

    State validate(QString& input, int& pos) const override;

private:
    const std::function<bool(const QString&)> fIsValue;
};

/// What delegates have in common whose values are edited as text. An editor whose text is no value stays open and is
/// marked; Escape leaves it.
class TextDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// What a cell shows: as much of the text as anybody can see.
    QString displayText(const QVariant& value, const QLocale& locale) const override;

    /// Whether the editor has to stay open, since the user has left a text in it that is no value. Marks it then.
    static bool isKept(QWidget* pEditor);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

    /// Takes the validator over. `expected` says what to type.
    static QLineEdit* lineEditMake(QWidget* pParent, QValidator* pValidator, bool isNumber, const QString& expected);

    static void textShow(QLineEdit* pLineEdit, const QString& text);

    /// Whether the user has changed the editor's text, and to one that is a value.
    static bool isEntered(const QWidget* pEditor);
};

/// A view whose editors stay open over a text that is no value, whatever the user does with the mouse.
template <class View>
class TextView : public View
{
public:
    using View::View;

    bool isEditing() const { return View::state() == View::EditingState; }

protected:
    void closeEditor(QWidget* pEditor, QAbstractItemDelegate::EndEditHint hint) override
    {
        if (hint == QAbstractItemDelegate::RevertModelCache || !TextDelegate::isKept(pEditor))
            return View::closeEditor(pEditor, hint);
        // No other cell can be edited meanwhile.
        if (View::hasFocus())
            QMetaObject::invokeMethod(
                pEditor, [pEditor] { pEditor->setFocus(); }, Qt::QueuedConnection);
    }
};
