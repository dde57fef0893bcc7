#pragma once

#include "tuning-client/source/abstract-widget.h"

#include <json/value.h>

#include <QDomElement>
#include <QVector>

#include <functional>
#include <memory>

class QErrorMessage;
class QItemSelection;
class QLineEdit;
class QPushButton;
class QStandardItemModel;
class RegisterLog;
class RegisterTable;

/// "ISP Register": the ISP's registers as the board describes them, a module at a time. Talks to the board on the
/// user's actions only.
class IspRegisterWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit IspRegisterWidget(QWidget* pParent);
    ~IspRegisterWidget() override;

    /// Writes the registers of every module to a file; with a `moduleId` that is not negative, up to the first module
    /// of a higher number. Without a file name nothing happens. Throws when the list of the modules cannot be read or
    /// the file cannot be written; a module that cannot be read stands in the file with a null `map`.
    void dump(QString& fileName, int moduleId);

    /// Puts the values of the file into the table, matched by position. They are not sent. Throws for a file that
    /// cannot be read.
    void registerFileLoad(const QString& path);

    /// A new file with the default values of the selected module. The four throw when no module is selected, when the
    /// file lacks a module to change, and when it cannot be read or written.
    void registerFileCreate(const QString& path);

    /// Puts the module into a file that exists: one of the two below.
    void registerFileReplace(const QString& path);

    /// Replaces the module's values in the file by those of the table, matched by position.
    void changeRegModuleFile(const QString& path);

    /// Appends the module with its default values.
    void insertRegModuleFile(const QString& path);

    /// Shows `value` in the rows of that address.
    void updateRegister(const QString& address, uint32_t value);

    QStandardItemModel* pStandardItemModel;
    RegisterTable* pTreeView;
    uint16_t row = 0;
    QString lineHexEditText;
    QString lineDecEditText;
    QString lineBinEditText;
    QString linePreStringValue; ///< hexadecimal, before editing
    QLineEdit* pLineEditAddress;
    QLineEdit* pLineEditHexValue;
    QLineEdit* pLineEditDecValue;
    QLineEdit* pLineEditBinValue;
    bool isValueEdited = false; ///< false while the page itself fills the fields, and without a selected register
    QString registerSelectedAddress;
    QString registerSelectedHexValue;
    QString registerSelectedDecValue;
    QString registerSelectedBinValue;
    Json::Value registersMap; ///< of the selected module
    Json::Value jModuleList;
    QString moduleName;
    QString xmlStringModuleName; ///< the same as a name of an element
    QPushButton* pPushButtonSet;
    QPushButton* pPushButtonPopup;
    RegisterLog* pTextEditRegisterValue; ///< what has been written
    QErrorMessage* pErrorMessageReadRegisterFile = nullptr;
    QErrorMessage* pErrorMessageHexText = nullptr;
    QErrorMessage* pErrorMessageDecText = nullptr;
    QErrorMessage* pErrorMessageBinText = nullptr;
    std::unique_ptr<QVector<QDomElement>> pOptrixSubItem; ///< of the file that is being written

private slots:
    void treeView_SelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void pushButtonSet_Clicked();
    void pushButtonRefresh_Clicked();

private:
    void layOut();
    void modulesRead();
    void moduleMenuFill();
    void moduleChoose(int id, const QString& name);
    void registerShow();
    void selectionForget();
    void valueFieldsEnable(bool isEnabled);
    void valueEdit(QLineEdit* pField, int base, QErrorMessage*& pErrorMessage, const QString& error);
    void errorShow(QErrorMessage*& pErrorMessage, const QString& text);
    QPushButton* buttonMake(const QString& name, const std::function<void()>& action);
    void loadAsk();
    void saveAsk();
    void dumpAsk(const QString& stem);
    void moduleInsert(QDomDocument& document);
    void writeLog(uint32_t address);

    const QString logPath; ///< named by the time of construction
};
