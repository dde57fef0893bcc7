#include "tuning-client/source/shortcut/number-fields.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSpinBox>
#include <QValidator>

namespace
{
/// Stands in front of the field's own validator, since every new text comes by there.
class PointValidator : public QValidator
{
public:
    explicit PointValidator(QLineEdit* pField)
        : QValidator(pField), pOwn(pField->validator()), isWhole(qobject_cast<QSpinBox*>(pField->parent()))
    {
        // A text that its validator has changed counts as set by the program.
        connect(pField, &QLineEdit::textChanged, pField,
                [this, pField]
                {
                    if (hasReplaced)
                        pField->setModified(true);
                    hasReplaced = false;
                });
    }

    State validate(QString& input, int& pos) const override
    {
        hasReplaced = hasReplaced || input.contains(',');
        input.replace(',', '.');
        const auto state = pOwn ? pOwn->validate(input, pos) : Acceptable;
        if (state != Invalid || !isWhole || !input.contains('.'))
            return state;
        // A box without fractions would drop the point, and "1.5" would be 15. So the text stands, and is no number.
        auto joined = input;
        joined.remove(input.indexOf('.'), 1);
        auto ignored = pos;
        return pOwn->validate(joined, ignored) == Invalid ? Invalid : Intermediate;
    }

    void fixup(QString& input) const override
    {
        if (pOwn)
            pOwn->fixup(input);
    }

private:
    const QPointer<const QValidator> pOwn;
    const bool isWhole;
    mutable bool hasReplaced = false;
};

class NumberFieldFilter : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        auto* pField = pEvent->type() == QEvent::Polish ? qobject_cast<QLineEdit*>(pWatched) : nullptr;
        if (pField && isForNumbers(*pField))
            pField->setValidator(new PointValidator(pField));
        return false;
    }

private:
    static bool isForNumbers(const QLineEdit& field)
    {
        const auto* pSpinBox = qobject_cast<const QAbstractSpinBox*>(field.parent());
        const auto hints = pSpinBox ? pSpinBox->inputMethodHints() : field.inputMethodHints();
        return hints & (Qt::ImhDigitsOnly | Qt::ImhFormattedNumbersOnly);
    }
};
} // namespace

void shortcut::commaIsPoint() { qApp->installEventFilter(new NumberFieldFilter(qApp)); }
