#include "tuning-client/source/chip/chips.h"

#include "tuning-client/source/config/config.h"

Chips chips;

Chips::Chips() : directory("chip")
{
    searchChips();
    connect(&chip, &Chip::valueChanged, this, &Chips::chipChanged);
}

void Chips::searchChips()
{
    xmls = directory.entryList({"*.xml"}, QDir::Files, QDir::Unsorted);
    for (const auto& xml : qAsConst(xmls))
    {
        const auto path = directory.path() + "/" + xml;
        Chip head;
        head.loadXml(path, true);
        chips.insert(head.chipName, path);
    }
}

void Chips::chipSet(const QString& chipName)
{
    chip.loadXml(chips.value(chipName), false);
    config.setting.chipName = chipName;
}
