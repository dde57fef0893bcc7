#include "tuning-tool/source/chip-check.h"

#include "tuning-common/source/limits.h"
#include "tuning-common/source/page-names.h"
#include "tuning-common/source/text.h"
#include "tuning-common/source/xml-bytes.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/nearest.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <map>

namespace tool
{
namespace
{
namespace limit = t_common::limit;

std::string quoted(const QString& text)
{
    return "\"" + t_common::printable(text.toStdString(), limit::jsonExcerpt) + "\"";
}

std::string quoted(const QStringRef& text) { return quoted(text.toString()); }

const std::vector<std::string>& pageNames()
{
    static const std::vector<std::string> names(std::begin(t_common::pageNames), std::end(t_common::pageNames));
    return names;
}

/// Walks the elements of one description.
class Check
{
public:
    explicit Check(const QByteArray& bytes_) : bytes(bytes_), reader(bytes) {}

    ChipReport run()
    {
        while (!reader.atEnd())
        {
            reader.readNext();
            if (reader.isDTD() && reader.text().contains('['))
            {
                find("has declarations of its own: the window refuses the file");
                return report;
            }
            if (reader.isStartElement())
                open();
            else if (reader.isEndElement())
                path.pop_back();
        }
        if (reader.hasError())
            find("is not well-formed from here on: " + quoted(reader.errorString()));
        else if (pages == 0)
            find("has no page");
        if (pages > limit::chipPages)
            report.findings.push_back({0, "has " + std::to_string(pages) + " pages: only the first " +
                                              std::to_string(limit::chipPages) + " are built"});
        return report;
    }

private:
    void find(const std::string& text) { report.findings.push_back({reader.lineNumber(), text}); }

    void open()
    {
        path.push_back(reader.name().toString());
        if (path.size() > limit::xmlDepth)
            return reader.raiseError("nested too deeply");
        const auto attributes = reader.attributes();
        if (path.size() == 1)
            return root(attributes);
        if (reader.name() == QLatin1String("Page"))
            return page(attributes);
        if (path.size() == 2)
            find(quoted(reader.name()) + " is no Page: it has a row without a page, and shifts all pages behind it");
    }

    void root(const QXmlStreamAttributes& attributes)
    {
        if (reader.name() != QLatin1String("Table"))
            find("the root is " + quoted(reader.name()) + ", not Table: the file is an entry without a name");
        known(attributes, {"ChipName", "InputMax", "IspMax", "Version"});
        report.chipName = attributes.value("ChipName").toString().toStdString();
        if (report.chipName.empty())
            find("ChipName is missing: the file is an entry without a name");
        for (const auto* name : {"InputMax", "IspMax"})
        {
            bool isNumber = false;
            const auto text = attributes.value(QLatin1String(name));
            const int value = text.toInt(&isNumber);
            if (!isNumber)
                find(std::string(name) + (text.isEmpty() ? " is missing" : " is " + quoted(text) + ", no number") +
                     ": 0 is taken");
            else if (value < 0 || value > limit::chipCounterMaximum)
                find(std::string(name) + " is " + std::to_string(value) + ", not 0 to " +
                     std::to_string(limit::chipCounterMaximum) + ": the nearest is taken");
        }
        if (static_cast<std::size_t>(reader.characterOffset()) > limit::chipHead)
            find("the head has more than 64 KiB: the chip has no name in the menu");
    }

    void page(const QXmlStreamAttributes& attributes)
    {
        const auto name = attributes.value("Name");
        const auto text = name.toString().toStdString();
        ++pages;
        if (path.size() != 2)
            find("page " + quoted(name) + " is no child of Table: it has no row, and shifts all pages behind it");
        known(attributes, {"Name", "Type", "Level"});
        if (!attributes.hasAttribute("Name"))
            return find("a page without a Name: its row shows the page behind it");
        if (std::find(pageNames().begin(), pageNames().end(), text) == pageNames().end())
            return find("no page bears the name " + quoted(name) + meantText(text, pageNames()) +
                        " (its row shows the page behind it)");
        const auto [found, isNew] = lines.emplace(text, reader.lineNumber());
        if (!isNew)
            find("page " + quoted(name) + " is named again, first in line " + std::to_string(found->second));
    }

    /// An attribute of another name is passed over by the window, and so is one too long.
    void known(const QXmlStreamAttributes& attributes, const std::vector<std::string>& names)
    {
        for (const auto& attribute : attributes)
        {
            const auto name = attribute.name().toString().toStdString();
            if (std::find(names.begin(), names.end(), name) == names.end())
                find("attribute " + quoted(attribute.name()) + " means nothing" + meantText(name, names));
            if (attribute.value().size() > int(limit::listText))
                find("attribute " + quoted(attribute.name()) + " is cut at " + std::to_string(limit::listText) +
                     " characters");
        }
    }

    const QByteArray bytes;
    QXmlStreamReader reader;
    std::vector<QString> path;
    std::size_t pages = 0;
    std::map<std::string, long long> lines; ///< where a page was named first
    ChipReport report;
};
} // namespace

ChipReport chipReport(const std::string& path)
{
    try
    {
        return Check(t_common::xmlBytesRead(QString::fromStdString(path))).run();
    }
    catch (const std::exception& exception)
    {
        throw Failure(LocalFile, t_common::printable(exception.what()));
    }
}
} // namespace tool
