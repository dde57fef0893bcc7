#include "tuning-client/source/config/setting.h"

namespace cfg
{
Setting::Setting() : Abstract("setting.json") { restore(); }

Setting::~Setting() { store(); }

void Setting::restore()
{
    chipName = jRoot["chip.name"].toString();
    inputIndex = jRoot["input.index"].toInt();
    ispIndex = jRoot["isp.index"].toInt();
    isViewTemplate = jRoot["view.template"].toBool();
    isViewTransfer = jRoot["view.transfer"].toBool();
}

void Setting::store()
{
    jRoot["chip.name"] = chipName;
    jRoot["input.index"] = inputIndex;
    jRoot["isp.index"] = ispIndex;
    jRoot["view.template"] = isViewTemplate;
    jRoot["view.transfer"] = isViewTransfer;
}
} // namespace cfg
