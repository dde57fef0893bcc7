#include "tuning-client/source/shortcut/message-box.h"

#include "tuning-common/source/limits.h"

#include <QMessageBox>

namespace
{
constexpr int textLimit = t_common::limit::statusBarText;

int exec(QWidget* pParent, QMessageBox::Icon icon, const QString& title, const QString& text,
         QMessageBox::StandardButtons buttons = QMessageBox::Ok)
{
    QMessageBox box(icon, title, text.left(textLimit), buttons, pParent);
    box.setTextFormat(Qt::PlainText);
    return box.exec();
}
} // namespace

namespace message_box
{
void information(QWidget* pParent, const QString& title, const QString& text)
{
    exec(pParent, QMessageBox::Information, title, text);
}

void warning(QWidget* pParent, const QString& text)
{
    exec(pParent, QMessageBox::Warning, QObject::tr("Warning"), text);
}

bool question(QWidget* pParent, const QString& text)
{
    const auto buttons = QMessageBox::Yes | QMessageBox::No;
    return exec(pParent, QMessageBox::Question, QObject::tr("Warning"), text, buttons) == QMessageBox::Yes;
}
} // namespace message_box
