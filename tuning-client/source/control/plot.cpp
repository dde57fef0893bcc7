#include "tuning-client/source/control/plot.h"

#include <qwt_plot.h>
#include <qwt_text.h>

namespace plot
{
void setAxisTitle(QwtPlot& plot, int axis, const QString& text)
{
    QwtText title(text, QwtText::PlainText);
    title.setFont(plot.font());
    plot.setAxisTitle(axis, title);
    plot.setAxisFont(axis, plot.font());
}
} // namespace plot
