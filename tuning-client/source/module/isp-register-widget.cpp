#include "tuning-client/source/module/isp-register-widget.h"

#include "tuning-client/source/control/register-log.h"
#include "tuning-client/source/control/register-table.h"
#include "tuning-client/source/file/register-document.h"
#include "tuning-client/source/file/register-dump.h"
#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/answer.h"
#include "tuning-rest/source/reg.h"

#include <QDateTime>
#include <QDir>
#include <QErrorMessage>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStatusBar>

#include <stdexcept>

namespace
{
using rest::answerGet;

QString hexText(uint32_t value) { return QString::asprintf("%08X", value); }

uint32_t addressParse(const QString& text)
{
    bool isNumber = false;
    const auto address = text.toUInt(&isNumber, 16);
    if (!isNumber)
        throw std::runtime_error(
            IspRegisterWidget::tr("The address \"%1\" is no hexadecimal number").arg(text).toStdString());
    return address;
}

QString moduleNameGet(const std::string& description)
{
    return QString::fromStdString(t_common::printable(description, t_common::limit::fileName));
}

QLineEdit* valueFieldMake(const QString& accessibleName)
{
    auto* pField = new QLineEdit;
    pField->setAccessibleName(accessibleName);
    return pField;
}
} // namespace

IspRegisterWidget::IspRegisterWidget(QWidget* pParent)
    : AbstractWidget(pParent, "ISP Register", false),
      pStandardItemModel(new QStandardItemModel(0, RegisterTable::Sum, this)),
      pTreeView(new RegisterTable(pStandardItemModel)),
      pLineEditAddress(valueFieldMake(tr("Address"))),
      pLineEditHexValue(valueFieldMake(tr("Hexadecimal value"))),
      pLineEditDecValue(valueFieldMake(tr("Decimal value"))),
      pLineEditBinValue(valueFieldMake(tr("Binary value"))),
      pPushButtonSet(new QPushButton(tr("Write"))),
      pPushButtonPopup(new QPushButton(tr("Select ISP Module"))),
      pTextEditRegisterValue(new RegisterLog),
      pOptrixSubItem(std::make_unique<QVector<QDomElement>>()),
      logPath(QDateTime::currentDateTime().toString("yyyyMMdd-hhmmss") + ".xml")
{
    layOut();
    valueFieldsEnable(false);

    auto* pMenu = new QMenu(this);
    pPushButtonPopup->setMenu(pMenu);
    connect(pMenu, &QMenu::aboutToShow, this, &IspRegisterWidget::moduleMenuFill);
    connect(pTreeView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &IspRegisterWidget::treeView_SelectionChanged);
    connect(pLineEditHexValue, &QLineEdit::textChanged, this,
            [this] { valueEdit(pLineEditHexValue, 16, pErrorMessageHexText, tr("HexText input error")); });
    connect(pLineEditDecValue, &QLineEdit::textChanged, this,
            [this] { valueEdit(pLineEditDecValue, 10, pErrorMessageDecText, tr("DecText input error")); });
    connect(pLineEditBinValue, &QLineEdit::textChanged, this,
            [this] { valueEdit(pLineEditBinValue, 2, pErrorMessageBinText, tr("BinText input error")); });
    connectGuarded(pPushButtonSet, &QPushButton::clicked, [this] { pushButtonSet_Clicked(); });
}

IspRegisterWidget::~IspRegisterWidget() = default;

QPushButton* IspRegisterWidget::buttonMake(const QString& name, const std::function<void()>& action)
{
    auto* pButton = new QPushButton(name);
    connectGuarded(pButton, &QPushButton::clicked, action);
    return pButton;
}

void IspRegisterWidget::layOut()
{
    auto* pGrid = pGridLayoutScrollArea;
    pGrid->addWidget(pPushButtonPopup, 1, 0, 1, 2);
    pGrid->addWidget(pTreeView, 2, 0, 1, 4);
    int line = 3;
    for (const auto& [name, pField] : {std::pair(tr("ad"), pLineEditAddress), std::pair(tr("0x"), pLineEditHexValue),
                                       std::pair(tr("0d"), pLineEditDecValue), std::pair(tr("0b"), pLineEditBinValue)})
    {
        auto* pLabel = new QLabel(name);
        pLabel->setBuddy(pField);
        pGrid->addWidget(pLabel, line, 0);
        pGrid->addWidget(pField, line++, 1);
    }
    pLineEditAddress->setReadOnly(true);
    pGrid->addWidget(pPushButtonSet, 3, 2);
    pGrid->addWidget(buttonMake(tr("Read"), [this] { pushButtonRefresh_Clicked(); }), 3, 3);
    pGrid->addWidget(buttonMake(tr("Load"), [this] { loadAsk(); }), 5, 2);
    pGrid->addWidget(buttonMake(tr("Save"), [this] { saveAsk(); }), 5, 3);
    pGrid->addWidget(buttonMake(tr("Dump"), [this] { dumpAsk(xmlStringModuleName); }), 6, 2);
    pGrid->addWidget(buttonMake(tr("Dump All"), [this] { dumpAsk("OPTRIX"); }), 6, 3);
    pGrid->addWidget(pTextEditRegisterValue, 7, 0, 1, 4);
    pGrid->setColumnStretch(1, 1);
}

void IspRegisterWidget::loadAsk()
{
    registerFileLoad(
        QFileDialog::getOpenFileName(this, tr("Open XML File"), QDir::currentPath(), tr("XML Files (*.xml)")));
}

void IspRegisterWidget::saveAsk()
{
    const auto path =
        QFileDialog::getSaveFileName(this, tr("Save XML File"), QDir::currentPath(), tr("XML Files (*.xml)"));
    if (path.isEmpty())
        return;
    QFile::exists(path) ? registerFileReplace(path) : registerFileCreate(path);
}

void IspRegisterWidget::dumpAsk(const QString& stem)
{
    auto fileName = QFileDialog::getSaveFileName(this, tr("Select Dump File"),
                                                 QDir::current().filePath(stem + "_register_dump.json"),
                                                 tr("JSON Files (*.json)"), nullptr, QFileDialog::DontResolveSymlinks);
    dump(fileName, -1);
}

void IspRegisterWidget::modulesRead()
{
    Json::Value jList;
    rest::Reg().statusGet(jList);
    for (const auto& jModule : jList)
    {
        answerGet<std::string>(jModule, "description");
        answerGet<int32_t>(jModule, "module.id");
    }
    jModuleList = std::move(jList);
}

void IspRegisterWidget::moduleMenuFill()
{
    // The list read before stays in use when that fails.
    guarded([this] { modulesRead(); });
    auto* pMenu = pPushButtonPopup->menu();
    pMenu->clear();
    for (const auto& jModule : qAsConst(jModuleList))
    {
        const auto name = QString::fromStdString(answerGet<std::string>(jModule, "description"));
        const auto id = answerGet<int32_t>(jModule, "module.id");
        auto* pAction = pMenu->addAction(shortcut::menuText(name));
        pAction->setData(id);
        connectGuarded(pAction, &QAction::triggered,
                       [this, pAction, id, name]
                       {
                           pPushButtonPopup->setText(pAction->text());
                           moduleChoose(id, name);
                       });
    }
}

void IspRegisterWidget::moduleChoose(int id, const QString& name)
{
    moduleName = moduleNameGet(name.toStdString());
    QStringList names;
    for (const auto& jModule : qAsConst(jModuleList))
        names.append(moduleNameGet(answerGet<std::string>(jModule, "description")));
    xmlStringModuleName = register_document::tagMake(moduleName, names);
    registersMap = Json::Value(Json::arrayValue);
    guarded(
        [&]
        {
            Json::Value jRegisters;
            rest::Reg().statusGet(id, jRegisters);
            RegisterTable::check(jRegisters);
            registersMap = std::move(jRegisters);
        });
    selectionForget();
    pTreeView->registersShow(registersMap);
}

void IspRegisterWidget::treeView_SelectionChanged(const QItemSelection& selected, const QItemSelection&)
{
    if (selected.isEmpty())
        return;
    row = uint16_t(selected.indexes().first().row());
    registerShow();
}

void IspRegisterWidget::registerShow()
{
    isValueEdited = false;
    registerSelectedAddress = pTreeView->text(row, RegisterTable::Address);
    pLineEditAddress->setText(registerSelectedAddress);
    const auto value = pTreeView->text(row, RegisterTable::Value).toUInt(nullptr, 16);
    registerSelectedHexValue = hexText(value);
    registerSelectedDecValue = QString::number(value);
    registerSelectedBinValue = QString::number(value, 2);
    pLineEditHexValue->setText(registerSelectedHexValue);
    pLineEditDecValue->setText(registerSelectedDecValue);
    pLineEditBinValue->setText(registerSelectedBinValue);
    linePreStringValue = registerSelectedHexValue;
    lineHexEditText = registerSelectedHexValue;
    lineDecEditText = registerSelectedDecValue;
    lineBinEditText = registerSelectedBinValue;
    isValueEdited = true;
    valueFieldsEnable(pTreeView->text(row, RegisterTable::Permission).contains("W"));
}

// A register of the last module must not be written by its fields under the table of another one.
void IspRegisterWidget::selectionForget()
{
    isValueEdited = false;
    registerSelectedAddress.clear();
    for (auto* pField : {pLineEditAddress, pLineEditHexValue, pLineEditDecValue, pLineEditBinValue})
        pField->clear();
    valueFieldsEnable(false);
}

void IspRegisterWidget::valueFieldsEnable(bool isEnabled)
{
    for (auto* pWidget :
         std::initializer_list<QWidget*>{pLineEditHexValue, pLineEditDecValue, pLineEditBinValue, pPushButtonSet})
        pWidget->setEnabled(isEnabled);
}

void IspRegisterWidget::valueEdit(QLineEdit* pField, int base, QErrorMessage*& pErrorMessage, const QString& error)
{
    if (!isValueEdited)
        return;
    isValueEdited = false;
    bool isNumber = false;
    auto value = pField->text().toUInt(&isNumber, base);
    if (!isNumber)
        value = linePreStringValue.toUInt(nullptr, 16);
    registerSelectedHexValue = base == 16 ? hexText(value) : QString::number(value, 16);
    registerSelectedDecValue = QString::number(value);
    registerSelectedBinValue = QString::number(value, 2);

    // What the user is typing stays as he writes it; hexadecimal has one form only.
    const auto show = [&](QLineEdit* pOther, const QString& text)
    {
        if (pOther == pField && isNumber && base != 16)
            return;
        const auto behindCursor = pOther->text().size() - pOther->cursorPosition();
        pOther->setText(text);
        pOther->setCursorPosition(qMax(0, text.size() - behindCursor));
    };
    show(pLineEditHexValue, base == 2 ? "0x" + registerSelectedHexValue : registerSelectedHexValue);
    show(pLineEditDecValue, registerSelectedDecValue);
    show(pLineEditBinValue, registerSelectedBinValue);
    if (!isNumber)
        errorShow(pErrorMessage, error);
    lineHexEditText = registerSelectedHexValue;
    lineDecEditText = registerSelectedDecValue;
    lineBinEditText = registerSelectedBinValue;
    isValueEdited = true;
}

// A new box each time: one that is kept would offer never to speak again.
void IspRegisterWidget::errorShow(QErrorMessage*& pErrorMessage, const QString& text)
{
    delete pErrorMessage;
    pErrorMessage = new QErrorMessage(this);
    pErrorMessage->showMessage(text);
}

void IspRegisterWidget::pushButtonSet_Clicked()
{
    if (!isValueEdited || linePreStringValue == lineHexEditText)
        return;
    const auto address = addressParse(registerSelectedAddress);
    const auto value = lineHexEditText.toUInt(nullptr, 16);
    rest::Reg().configSet(address, value);
    // The board has it, whatever happens now.
    QString trouble;
    const auto trying = [&](const QString& what, const std::function<void()>& action)
    {
        try
        {
            action();
        }
        catch (const std::exception& exception)
        {
            trouble += (trouble.isEmpty() ? tr("Written, but ") : "; ") + what + exception.what();
        }
    };
    trying(tr("not logged: "), [&] { writeLog(address); });
    linePreStringValue = hexText(value);
    trying(tr("not read back: "), [&] { pushButtonRefresh_Clicked(); });
    if (!trouble.isEmpty())
        throw std::runtime_error(trouble.toStdString());
    okShow(statusBar(), "Write", address, value);
}

void IspRegisterWidget::pushButtonRefresh_Clicked()
{
    if (!isValueEdited)
        return;
    const auto address = addressParse(registerSelectedAddress);
    uint32_t value = 0;
    rest::Reg().configGet(address, value);
    updateRegister(registerSelectedAddress, value);
    registerShow();
    okShow(statusBar(), "Read", address, value);
}

void IspRegisterWidget::updateRegister(const QString& address, uint32_t value) { pTreeView->valueShow(address, value); }

void IspRegisterWidget::writeLog(uint32_t address)
{
    pTextEditRegisterValue->lineAppend(
        QString("Set Module (%1 ): \tset *%2 = 0x%3").arg(moduleName, registerSelectedAddress, lineHexEditText));
    register_document::logAppend(logPath, {xmlStringModuleName, pTreeView->text(row, RegisterTable::Name), address,
                                           "0x" + lineHexEditText, "0x" + linePreStringValue});
}

void IspRegisterWidget::dump(QString& fileName, int moduleId)
{
    if (fileName.isEmpty())
        return;
    const shortcut::WaitCursor cursor;
    modulesRead();
    const bool isWhole = registerDumpWrite(fileName, jModuleList, moduleId,
                                           [this](int id, Json::Value& jMap)
                                           { return guarded([&] { rest::Reg().statusGet(id, jMap); }); });
    if (auto* pStatusBar = statusBar(); pStatusBar && isWhole)
        pStatusBar->showMessage(tr("Registers saved to %1").arg(fileName));
}

void IspRegisterWidget::registerFileLoad(const QString& path)
{
    if (path.isEmpty())
        return;
    const auto document = register_document::read(path);
    // Files from before names were told apart have the short one.
    auto tag = xmlStringModuleName;
    if (register_document::moduleFind(document, tag).isNull() && !moduleName.isEmpty())
        tag = register_document::nameMake(moduleName);
    if (register_document::moduleFind(document, tag).isNull())
        return errorShow(pErrorMessageReadRegisterFile,
                         "The xml file you loaded doesn't have the " + xmlStringModuleName + " information");
    pTreeView->valuesShow(register_document::textsGet(document, tag));
    // What the user has typed and not yet written stays.
    if (isValueEdited && linePreStringValue == lineHexEditText)
        registerShow();
}

void IspRegisterWidget::moduleInsert(QDomDocument& document)
{
    if (xmlStringModuleName.isEmpty())
        throw std::runtime_error(tr("No ISP module is selected").toStdString());
    pOptrixSubItem->clear();
    for (int line = 0; line < pTreeView->rowCount(); ++line)
        pOptrixSubItem->append(
            register_document::registerElement(document, pTreeView->text(line, RegisterTable::Name),
                                               addressParse(pTreeView->text(line, RegisterTable::Address)),
                                               pTreeView->text(line, RegisterTable::Default)));
    auto module = document.documentElement().appendChild(document.createElement(xmlStringModuleName));
    for (const auto& element : qAsConst(*pOptrixSubItem))
        module.appendChild(element);
}

void IspRegisterWidget::registerFileCreate(const QString& path)
{
    auto document = register_document::create();
    moduleInsert(document);
    register_document::write(document, path);
}

void IspRegisterWidget::registerFileReplace(const QString& path)
{
    const bool isKnown = !register_document::moduleFind(register_document::read(path), xmlStringModuleName).isNull();
    isKnown ? changeRegModuleFile(path) : insertRegModuleFile(path);
}

void IspRegisterWidget::changeRegModuleFile(const QString& path)
{
    const auto document = register_document::read(path);
    const auto module = register_document::moduleFind(document, xmlStringModuleName);
    if (module.isNull())
        throw std::runtime_error(tr("%1: the file has no such module").arg(path).toStdString());
    register_document::textsSet(module, pTreeView->texts(RegisterTable::Value));
    register_document::write(document, path);
}

void IspRegisterWidget::insertRegModuleFile(const QString& path)
{
    auto document = register_document::read(path);
    moduleInsert(document);
    register_document::write(document, path);
}
