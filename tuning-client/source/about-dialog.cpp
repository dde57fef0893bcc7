#include "tuning-client/source/about-dialog.h"

#include "tuning-client/source/versions.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/answer.h"
#include "tuning-rest/source/cli.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>

namespace
{
QGroupBox* boxBuild(const QString& title, const std::vector<Versions::Version>& versions)
{
    auto* pGroupBox = new QGroupBox(title);
    auto* pLayout = new QGridLayout(pGroupBox);
    int row = 0;
    for (const auto& version : versions)
    {
        int column = 0;
        for (const auto& text : {version.name, version.number, version.date})
        {
            auto* pLabel = new QLabel(QString::fromStdString(t_common::printable(text, t_common::limit::listText)));
            pLabel->setTextFormat(Qt::PlainText);
            pLayout->addWidget(pLabel, row, column++);
        }
        ++row;
    }
    pLayout->setRowStretch(row, 1);
    return pGroupBox;
}

std::vector<Versions::Version> clientVersions()
{
    std::vector<Versions::Version> versions;
    for (const auto* pVersion : Versions().collection)
        versions.push_back(*pVersion);
    return versions;
}

std::vector<Versions::Version> serverVersions()
{
    Json::Value jResponse;
    rest::Cli().versionGet(jResponse);
    std::vector<Versions::Version> versions;
    for (const auto& jVersion : rest::answerListGet(jResponse, "versions"))
        versions.emplace_back(rest::answerGet<std::string>(jVersion, "name"),
                              rest::answerGet<std::string>(jVersion, "number"),
                              rest::answerGet<std::string>(jVersion, "date"));
    return versions;
}
} // namespace

AboutDialog::AboutDialog(QWidget* pParent) : AbstractDialog(pParent, {}, false)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    setWindowTitle(tr("About ISP Tuning Tools"));

    auto* pLabelLogo = new QLabel;
    pLabelLogo->setPixmap(QPixmap(":/images/orlenta-logo.png"));
    pLabelLogo->setAlignment(Qt::AlignCenter);
    pGridLayoutScrollArea->addWidget(pLabelLogo, 0, 0, 1, 2);
    pGridLayoutScrollArea->setRowStretch(0, 1);
    pGridLayoutScrollArea->addWidget(new QLabel, 1, 0);
    pGridLayoutScrollArea->addWidget(boxBuild(tr("Client End"), clientVersions()), 2, 0);
    try
    {
        pGridLayoutScrollArea->addWidget(boxBuild(tr("Server End"), serverVersions()), 2, 1);
    }
    catch (...)
    {
        // Without a board the dialog shows what is known.
    }

    const auto margins = layout()->contentsMargins();
    const auto whole = pGridLayoutScrollArea->parentWidget()->sizeHint() +
                       QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
    resize(whole.boundedTo(screen()->availableSize()));
}
