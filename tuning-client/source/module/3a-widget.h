#pragma once

#include "tuning-client/source/abstract-widget.h"
#include "tuning-json/source/value.h"

class JsonView;
class QPushButton;

/// "3A Config": the board's file "3aconfig.json" as a tree. Edits stay here until "Save" sends the file back.
class _3AWidget : public AbstractWidget
{
    Q_OBJECT

public:
    explicit _3AWidget(QWidget* pParent);

    using AbstractWidget::configSet;

    /// Sends the document to the board. Throws when there is none yet, or when it cannot be written here.
    void configSet();
    void updateStatus() override;

    t_json::Value jRoot;
    JsonView* pJsonView;
    QPushButton* pPushButtonLoad;
    QPushButton* pPushButtonSave;
    std::string remotePath = "3aconfig.json";
    std::string localPath = "3aconfig.json";

private:
    Json::Value fileQuery() const;
    void unsavedSet(bool isUnsaved_);
    void dropTell();

    bool isLoaded = false;
    bool isUnsaved = false; ///< what the tree shows is not what the board has; "Save" is bold then
};
