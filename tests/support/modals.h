#pragma once

#include "tests/support/qt-main.h"

/// Hands each modal dialog that opens during its life to `fDialog`, which has to end it.
class Modals
{
public:
    explicit Modals(std::function<void(QDialog&)> fDialog_) : fDialog(std::move(fDialog_))
    {
        QObject::connect(&timer, &QTimer::timeout, &timer,
                         [this]
                         {
                             if (auto* pDialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                                 fDialog(*pDialog);
                         });
        timer.start(0);
    }

private:
    std::function<void(QDialog&)> fDialog;
    QTimer timer;
};

/// Answers each message box that opens during its life and keeps its title and text.
class ClosedBoxes : public Modals
{
public:
    explicit ClosedBoxes(QMessageBox::StandardButton button = QMessageBox::Ok)
        : Modals(
              [this, button](QDialog& dialog)
              {
                  const auto* pBox = qobject_cast<QMessageBox*>(&dialog);
                  if (!pBox)
                      return;
                  auto* pButton = pBox->button(button);
                  EXPECT_TRUE(pButton) << "a box of another kind";
                  EXPECT_TRUE(pBox->textFormat() == Qt::PlainText || !Qt::mightBeRichText(pBox->text()));
                  EXPECT_TRUE(!pBox->button(QMessageBox::No) || pBox->defaultButton() == pBox->button(QMessageBox::No));
                  texts.append(pBox->windowTitle() + ": " + pBox->text());
                  details.append(pBox->informativeText());
                  parents.append(pBox->parentWidget());
                  pButton ? pButton->click() : dialog.reject();
              })
    {
    }

    QStringList texts;
    QStringList details;
    QList<QWidget*> parents;
};

/// Titles and texts of the message boxes that `action` opens; each is closed at once.
template <class Action>
QStringList boxesDuring(Action action)
{
    const ClosedBoxes boxes;
    action();
    return boxes.texts;
}

/// Enters a path in the file dialog that opens during its life, and agrees to a box behind it; a null path cancels.
class FileDialogAnswer : public Modals
{
public:
    explicit FileDialogAnswer(const QString& path)
        : Modals(
              [this, path](QDialog& dialog)
              {
                  if (auto* pBox = qobject_cast<QMessageBox*>(&dialog))
                  {
                      said = pBox->windowTitle() + ": " + pBox->text();
                      auto* pYes = pBox->button(QMessageBox::Yes);
                      return (pYes ? pYes : pBox->button(QMessageBox::Ok))->click();
                  }
                  auto* pDialog = qobject_cast<QFileDialog*>(&dialog);
                  if (!pDialog || !seen.isEmpty())
                      return;
                  auto* pName = pDialog->findChild<QLineEdit*>("fileNameEdit");
                  seen = pDialog->windowTitle() + "|" + pDialog->directory().path() + "|" +
                         pDialog->nameFilters().join(",");
                  suggested = pName->text();
                  if (path.isNull())
                      return pDialog->reject();
                  pName->setText(path);
                  // Not from within: a question of the dialog's own would have to be answered from here as well.
                  QMetaObject::invokeMethod(pDialog, "accept", Qt::QueuedConnection);
              })
    {
    }

    QString seen;      ///< title, directory and filters
    QString suggested; ///< the name that stood in the dialog
    QString said;      ///< title and text of the box
};
