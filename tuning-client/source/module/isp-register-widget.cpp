#include "tuning-client/source/module/isp-register-widget.h"

#include "tuning-client/source/file/local-file.h"
#include "tuning-client/source/file/register-document.h"
#include "tuning-client/source/file/remote-file.h"
#include "tuning-client/source/module/register-widget.h"
#include "tuning-client/source/shortcut/wait-cursor.h"
#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"
#include "tuning-rest/source/answer.h"
#include "tuning-rest/source/reg.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QErrorMessage>
#include <QFileDialog>
#include <QGridLayout>
#include <QItemSelection>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTextEdit>
#include <QTreeView>

#include <stdexcept>

namespace
{
using rest::answerGet;

constexpr int logLines = 1000;
// Two time limits in a row: the board is gone, and each further module would block the window as long again.
constexpr int silenceLimit = 2;
constexpr int silence = 1000; // milliseconds

QString permissionText(int permission) { return permission == 1 ? "R/W" : permission == 2 ? "W" : "R"; }

QColor permissionColor(const QString& permission)
{
    if (permission == "R")
        return {155, 0, 0, 255};
    if (permission == "R/W")
        return {0, 0, 155, 255};
    if (permission == "W")
        return {0, 155, 0, 255};
    return {0, 0, 0, 255};
}

QString hexText(uint32_t value) { return QString::asprintf("%08X", value); }

QString cellText(const std::string& text)
{
    return QString::fromStdString(t_common::printable(text, t_common::limit::cellText));
}

uint32_t addressParse(const QString& text)
{
    bool isNumber = false;
    const auto address = text.toUInt(&isNumber, 16);
    if (!isNumber)
        throw std::runtime_error(
            IspRegisterWidget::tr("The address \"%1\" is no hexadecimal number").arg(text).toStdString());
    return address;
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
      pStandardItemModel(new QStandardItemModel(0, Sum, this)),
      pTreeView(new QTreeView),
      pLineEditAddress(valueFieldMake(tr("Address"))),
      pLineEditHexValue(valueFieldMake(tr("Hexadecimal value"))),
      pLineEditDecValue(valueFieldMake(tr("Decimal value"))),
      pLineEditBinValue(valueFieldMake(tr("Binary value"))),
      pPushButtonSet(new QPushButton(tr("Write"))),
      pPushButtonPopup(new QPushButton(tr("Select ISP Module"))),
      pTextEditRegisterValue(new QTextEdit),
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

void IspRegisterWidget::layOut()
{
    pStandardItemModel->setHorizontalHeaderLabels(
        {tr("Permission"), tr("Address"), tr("Name"), tr("Default"), tr("Value"), tr("Description")});
    pTreeView->setModel(pStandardItemModel);
    delete pTreeView->selectionModel();
    pTreeView->setSelectionModel(new QItemSelectionModel(pStandardItemModel, pTreeView));
    pTreeView->setRootIsDecorated(false);
    pTreeView->setAlternatingRowColors(true);
    pTreeView->setUniformRowHeights(true);
    pTreeView->setAccessibleName(tr("Registers"));
    pLineEditAddress->setReadOnly(true);
    pTextEditRegisterValue->setReadOnly(true);
    pTextEditRegisterValue->setAcceptRichText(false);
    pTextEditRegisterValue->setAccessibleName(tr("Written registers"));
    pTextEditRegisterValue->setPlaceholderText(tr("Written registers"));
    pTextEditRegisterValue->document()->setMaximumBlockCount(logLines);
    pTextEditRegisterValue->setMaximumHeight(5 * fontMetrics().lineSpacing());

    const auto buttonMake = [this](const QString& name, auto action)
    {
        auto* pButton = new QPushButton(name);
        connectGuarded(pButton, &QPushButton::clicked, action);
        return pButton;
    };
    auto* pRead = buttonMake(tr("Read"), [this] { pushButtonRefresh_Clicked(); });
    auto* pLoad = buttonMake(tr("Load"),
                             [this]
                             {
                                 registerFileLoad(QFileDialog::getOpenFileName(
                                     this, tr("Open XML File"), QDir::currentPath(), tr("XML Files (*.xml)")));
                             });
    auto* pSave = buttonMake(tr("Save"),
                             [this]
                             {
                                 const auto path = QFileDialog::getSaveFileName(
                                     this, tr("Save XML File"), QDir::currentPath(), tr("XML Files (*.xml)"));
                                 if (path.isEmpty())
                                     return;
                                 QFile::exists(path) ? registerFileReplace(path) : registerFileCreate(path);
                             });
    const auto dumpMake = [&](const QString& name, auto fStem)
    {
        return buttonMake(name,
                          [this, fStem]
                          {
                              auto fileName = fileNameAsk(fStem());
                              dump(fileName, -1);
                          });
    };
    auto* pDump = dumpMake(tr("Dump"), [this] { return xmlStringModuleName; });
    auto* pDumpAll = dumpMake(tr("Dump All"), [] { return QString("OPTRIX"); });

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
    pGrid->addWidget(pPushButtonSet, 3, 2);
    pGrid->addWidget(pRead, 3, 3);
    pGrid->addWidget(pLoad, 5, 2);
    pGrid->addWidget(pSave, 5, 3);
    pGrid->addWidget(pDump, 6, 2);
    pGrid->addWidget(pDumpAll, 6, 3);
    pGrid->addWidget(pTextEditRegisterValue, 7, 0, 1, 4);
    pGrid->setColumnStretch(1, 1);
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
    moduleName = QString::fromStdString(t_common::printable(name.toStdString(), t_common::limit::fileName));
    xmlStringModuleName = register_document::nameMake(moduleName);
    registersMap = Json::Value(Json::arrayValue);
    guarded(
        [&]
        {
            Json::Value jRegisters;
            rest::Reg().statusGet(id, jRegisters);
            for (const auto& jRegister : jRegisters)
            {
                answerGet<int32_t>(jRegister, "permission");
                for (const auto* key : {"address", "name", "value.default", "value", "description"})
                    answerGet<std::string>(jRegister, key);
            }
            registersMap = std::move(jRegisters);
        });
    registersShow();
}

void IspRegisterWidget::registersShow()
{
    selectionForget();
    pStandardItemModel->setRowCount(0);
    for (const auto& jRegister : qAsConst(registersMap))
    {
        const auto permission = permissionText(answerGet<int32_t>(jRegister, "permission"));
        QList<QStandardItem*> items{new QStandardItem(permission)};
        for (const auto* key : {"address", "name", "value.default", "value", "description"})
            items.append(new QStandardItem(cellText(answerGet<std::string>(jRegister, key))));
        for (auto* pItem : qAsConst(items))
        {
            pItem->setEditable(false);
            pItem->setForeground(permissionColor(permission));
        }
        pStandardItemModel->appendRow(items);
    }
    for (int column = 0; column < Sum; ++column)
        pTreeView->resizeColumnToContents(column);
}

QString IspRegisterWidget::text(int line, Column column) const
{
    return pStandardItemModel->item(line, column)->text();
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
    registerSelectedAddress = text(row, Address);
    pLineEditAddress->setText(registerSelectedAddress);
    const auto value = text(row, Value).toUInt(nullptr, 16);
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
    valueFieldsEnable(text(row, Permission).contains("W"));
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

void IspRegisterWidget::updateRegister(const QString& address, uint32_t value)
{
    for (const auto* pItem : pStandardItemModel->findItems(address, Qt::MatchFixedString, Address))
        pStandardItemModel->item(pItem->row(), Value)->setText(QString::asprintf("0x%08x", value));
}

void IspRegisterWidget::writeLog(uint32_t address)
{
    // The user's cursor may stand anywhere, with a selection that the text would replace.
    pTextEditRegisterValue->moveCursor(QTextCursor::End);
    pTextEditRegisterValue->insertPlainText(
        QString("Set Module (%1 ): \tset *%2 = 0x%3\n").arg(moduleName, registerSelectedAddress, lineHexEditText));
    pTextEditRegisterValue->ensureCursorVisible();

    // A page built within the same second has the same file.
    auto document = QFile::exists(logPath) ? register_document::read(logPath) : register_document::create();
    auto root = document.documentElement();
    auto module = root.lastChildElement();
    if (module.tagName() != xmlStringModuleName)
        module = root.appendChild(document.createElement(xmlStringModuleName)).toElement();
    auto element = register_document::registerElement(document, text(row, Name), address, "0x" + lineHexEditText);
    element.setAttribute("PreValue", "0x" + linePreStringValue);
    module.appendChild(element);
    register_document::write(document, logPath);
}

QString IspRegisterWidget::fileNameAsk(const QString& stem)
{
    return QFileDialog::getSaveFileName(this, tr("Select Dump File"),
                                        QDir::current().filePath(stem + "_register_dump.json"),
                                        tr("JSON Files (*.json)"), nullptr, QFileDialog::DontResolveSymlinks);
}

void IspRegisterWidget::dump(QString& fileName, int moduleId)
{
    if (fileName.isEmpty())
        return;
    const shortcut::WaitCursor cursor;
    modulesRead();
    Json::Value jDump(Json::arrayValue);
    int silent = 0; // requests one after the other
    bool isWhole = true;
    for (const auto& jModule : qAsConst(jModuleList))
    {
        const auto id = answerGet<int32_t>(jModule, "module.id");
        if (moduleId >= 0 && id > moduleId)
            break;
        Json::Value object;
        object["module.id"] = jModule["module.id"];
        object["description"] = jModule["description"];
        object["map"] = Json::Value();
        if (silent < silenceLimit)
        {
            QElapsedTimer clock;
            clock.start();
            const bool isRead = guarded([&] { rest::Reg().statusGet(id, object["map"]); });
            silent = !isRead && clock.elapsed() > silence ? silent + 1 : 0;
            isWhole = isWhole && isRead;
        }
        jDump.append(std::move(object));
    }
    shortcut::fileWrite(fileName, QByteArray::fromStdString(t_common::JsonApp::toString(jDump, "  ")));
    if (auto* pStatusBar = statusBar(); pStatusBar && isWhole)
        pStatusBar->showMessage(tr("Registers saved to %1").arg(fileName));
}

void IspRegisterWidget::registerFileLoad(const QString& path)
{
    if (path.isEmpty())
        return;
    const auto document = register_document::read(path);
    auto module = register_document::moduleFind(document, xmlStringModuleName);
    if (module.isNull())
        return errorShow(pErrorMessageReadRegisterFile,
                         "The xml file you loaded doesn't have the " + xmlStringModuleName + " information");
    // A log has a module several times; the last value counts.
    for (; !module.isNull(); module = module.nextSiblingElement(xmlStringModuleName))
    {
        auto element = module.firstChildElement();
        for (int line = 0; line < pStandardItemModel->rowCount() && !element.isNull(); ++line)
        {
            pStandardItemModel->item(line, Value)->setData(cellText(element.text().toStdString()), Qt::EditRole);
            element = element.nextSiblingElement();
        }
    }
    // What the user has typed and not yet written stays.
    if (isValueEdited && linePreStringValue == lineHexEditText)
        registerShow();
}

void IspRegisterWidget::moduleInsert(QDomDocument& document)
{
    if (xmlStringModuleName.isEmpty())
        throw std::runtime_error(tr("No ISP module is selected").toStdString());
    pOptrixSubItem->clear();
    for (int line = 0; line < pStandardItemModel->rowCount(); ++line)
        pOptrixSubItem->append(register_document::registerElement(
            document, text(line, Name), addressParse(text(line, Address)), text(line, Default)));
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
    auto element = module.firstChildElement();
    for (int line = 0; line < pStandardItemModel->rowCount() && !element.isNull(); ++line)
    {
        register_document::textSet(element, text(line, Value));
        element = element.nextSiblingElement();
    }
    register_document::write(document, path);
}

void IspRegisterWidget::insertRegModuleFile(const QString& path)
{
    auto document = register_document::read(path);
    moduleInsert(document);
    register_document::write(document, path);
}
