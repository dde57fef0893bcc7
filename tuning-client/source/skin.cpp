#include "tuning-client/source/skin.h"

#include "tuning-client/source/shortcut/number-fields.h"

#include <QApplication>
#include <QComboBox>
#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionComplex>

#include <clocale>
#include <optional>

namespace
{
/// What Fusion lacks. The title of a group box and the items of a combo box are measured by their ink and drawn with
/// the pen's way, so that wide fonts lose the end of a long text. Fields that only show look like those that can be
/// edited.
class HouseStyle : public QProxyStyle
{
public:
    explicit HouseStyle(QStyle* pStyle) : QProxyStyle(pStyle) { setObjectName("fusion"); }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* pOption, QPainter* pPainter,
                       const QWidget* pWidget) const override
    {
        const auto shown = flattened<QStyleOptionFrame>(element == PE_PanelLineEdit, pOption);
        QProxyStyle::drawPrimitive(element, shown ? &*shown : pOption, pPainter, pWidget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* pOption, QPainter* pPainter,
                            const QWidget* pWidget) const override
    {
        const auto shown = flattened<QStyleOptionSpinBox>(control == CC_SpinBox, pOption);
        QProxyStyle::drawComplexControl(control, shown ? &*shown : pOption, pPainter, pWidget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* pOption, SubControl subControl,
                         const QWidget* pWidget) const override
    {
        auto rect = QProxyStyle::subControlRect(control, pOption, subControl, pWidget);
        const auto* pBox = qstyleoption_cast<const QStyleOptionGroupBox*>(pOption);
        if (pBox && subControl == SC_GroupBoxLabel)
            rect.setWidth(rect.width() + lost(pBox->fontMetrics, {pBox->text}));
        return rect;
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* pOption, const QSize& contents,
                           const QWidget* pWidget) const override
    {
        auto size = QProxyStyle::sizeFromContents(type, pOption, contents, pWidget);
        const auto* pBox = qobject_cast<const QComboBox*>(pWidget);
        if (!pBox || type != CT_ComboBox)
            return size;
        QStringList items;
        for (int i = 0; i < pBox->count(); ++i)
            items.append(pBox->itemText(i));
        return size + QSize(lost(pOption->fontMetrics, items), 0);
    }

private:
    /// The option in the colour of its surroundings, for a field that is read only; none for anything else.
    template <class Option, class AnyOption>
    static std::optional<Option> flattened(bool isField, const AnyOption* pOption)
    {
        const auto* pField = qstyleoption_cast<const Option*>(pOption);
        if (!isField || !pField || !(pField->state & State_ReadOnly))
            return {};
        auto field = *pField;
        field.palette.setBrush(QPalette::Base, field.palette.window());
        return field;
    }

    /// By how much the longest text is longer than its ink.
    static int lost(const QFontMetrics& metrics, const QStringList& texts)
    {
        int ink = 0;
        int way = 0;
        for (const auto& text : texts)
        {
            ink = qMax(ink, metrics.boundingRect(text).width());
            way = qMax(way, metrics.horizontalAdvance(text));
        }
        return qMax(way - ink, 0);
    }
};

QPalette palette()
{
    const QColor text(0x1c, 0x20, 0x26);
    const QColor window(0xf0, 0xf1, 0xf4);
    const QColor base(0xff, 0xff, 0xff);
    const QColor accent(0x1f, 0x63, 0xb5);
    const QColor faint(0x84, 0x8b, 0x96);

    QPalette palette(text, QColor(0xe9, 0xeb, 0xef), base, QColor(0xa3, 0xa9, 0xb3), QColor(0xc4, 0xc9, 0xd1), text,
                     base, base, window);
    palette.setColor(QPalette::Midlight, QColor(0xdd, 0xe0, 0xe6));
    palette.setColor(QPalette::Shadow, QColor(0x6c, 0x73, 0x7e));
    palette.setColor(QPalette::AlternateBase, QColor(0xf5, 0xf7, 0xfa));
    palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xff, 0xe8));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, base);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::LinkVisited, QColor(0x6b, 0x3f, 0xa0));
    for (auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Base, window);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xc4, 0xc9, 0xd1));
    return palette;
}
} // namespace

namespace skin
{
void Font::Kestrix()
{
    QFont font("Segoe UI", 10);
    font.setStyleHint(QFont::Monospace, QFont::PreferDefault);
    QApplication::setFont(font);
}

void Style::Kestrix()
{
    QApplication::setStyle(new HouseStyle(QStyleFactory::create("Fusion")));
    QApplication::setPalette(palette());

    auto locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    QLocale::setDefault(locale);
    // QApplication has taken over the user's locale for the C library as well.
    std::setlocale(LC_NUMERIC, "C");
    shortcut::commaIsPoint();
}
} // namespace skin
