#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

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

/// Closes each message box that opens during its life and keeps its title and text.
class ClosedBoxes : public Modals
{
public:
    ClosedBoxes()
        : Modals(
              [this](QDialog& dialog)
              {
                  const auto* pBox = qobject_cast<QMessageBox*>(&dialog);
                  ASSERT_TRUE(pBox);
                  EXPECT_EQ(pBox->textFormat(), Qt::PlainText);
                  texts.append(pBox->windowTitle() + ": " + pBox->text());
                  dialog.accept();
              })
    {
    }

    QStringList texts;
};
