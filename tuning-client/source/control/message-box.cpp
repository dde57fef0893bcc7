#include "tuning-client/source/control/message-box.h"

#include "tuning-common/source/limits.h"

#include <QMessageBox>

namespace
{
constexpr int textLimit = t_common::limit::statusBarText;

int exec(QWidget* pParent, QMessageBox::Icon icon, const QString& text, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, QObject::tr("Warning"), text.left(textLimit), buttons, pParent);
    box.setTextFormat(Qt::PlainText);
    return box.exec();
}
} // namespace

namespace message_box
{
void warning(QWidget* pParent, const QString& text) { exec(pParent, QMessageBox::Warning, text, QMessageBox::Ok); }

bool question(QWidget* pParent, const QString& text)
{
    return exec(pParent, QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}
} // namespace message_box
