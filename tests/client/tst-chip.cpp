#include "tests/support/files.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/config/config.h"
#include "tuning-common/source/limits.h"

namespace
{
int warningCount = 0;

void countWarnings(QtMsgType type, const QMessageLogContext&, const QString&)
{
    warningCount += type == QtWarningMsg ? 1 : 0;
}

/// What a description says, in one line.
QString summary(const Chip& chip)
{
    QStringList names;
    for (const auto& page : chip.pages)
        names.append(QString("%1/%2/%3").arg(page.name, page.type).arg(page.level));
    return QString("%1|%2|%3|%4|%5")
        .arg(chip.chipName)
        .arg(chip.inputMax)
        .arg(chip.ispMax)
        .arg(chip.version, names.join(","));
}
} // namespace

/// A working directory without anything in it.
class ChipTest : public testing::Test
{
protected:
    ChipTest() : before(QDir::currentPath())
    {
        QDir::setCurrent(scratch.path());
        warningCount = 0;
        handlerBefore = qInstallMessageHandler(countWarnings);
    }

    ~ChipTest() override
    {
        qInstallMessageHandler(handlerBefore);
        QDir::setCurrent(before);
    }

    static void write(const QString& name, const QByteArray& text)
    {
        QDir().mkpath("chip");
        fileWrite("chip/" + name, text);
    }

    const QTemporaryDir scratch;
    const QString before;
    QtMessageHandler handlerBefore;
};

TEST_F(ChipTest, DescriptionsAreReadAsFarAsTheyGo)
{
    const QByteArray head = "<Table ChipName=\"C\" InputMax=\"2\" IspMax=\"3\" Version=\"v\">";
    const QByteArray page = "<Page Name=\"P\" Type=\"t\" Level=\"4\"/>";
    const QByteArray untouched = "old|1|1|old|Old//0";
    const struct
    {
        QByteArray text;
        QByteArray expected;
        int warnings;
    } cases[]{
        {"<?xml version=\"1.0\"?>\n<!-- c -->\n" + head + page + "</Table>", "C|2|3|v|P/t/4", 0},
        {"<!DOCTYPE Table>" + head + page + "</Table>", "C|2|3|v|P/t/4", 0},
        {"<Table/>", "|0|0||", 0},
        {"<Table><Page/><Page Level=\"x\"/></Table>", "|0|0||//0,//0", 0},
        {head + "<Group Name=\"G\">" + page + "<Page Name=\"Q\">" + page +
             "</Page></Group>text<page Name=\"q\"/></Table>",
         "C|2|3|v|P/t/4,Q//0,P/t/4", 0},
        {"<Table InputMax=\"-1\" IspMax=\"65\"/>", "|0|64||", 2},
        {"<Table InputMax=\"2.5\" IspMax=\"99999999999\"/>", "|0|0||", 2},
        {"<Table ChipName=\"a&amp;&#228;&lt;\"/>", "a&ä<|0|0||", 0},
        {"<Chip><Table ChipName=\"C\"/></Chip>", untouched, 0},
        {"<table ChipName=\"C\"/>", untouched, 0},
        // Broken in many ways.
        {head + page + "<Page Name=\"Q\"", "C|2|3|v|P/t/4", 1},
        {head + page + "\xff\xfe" + page, untouched, 1},
        {head, "C|2|3|v|", 1},
        {"", untouched, 1},
        // Declarations.
        {"<!DOCTYPE Table [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">]>"
         "<Table ChipName=\"&b;\"/>",
         untouched, 1},
        {"<!DOCTYPE Table [<!ATTLIST Table ChipName CDATA \"C\">]><Table/>", untouched, 1},
        {head + "&unknown;" + page + "</Table>", "C|2|3|v|", 1},
    };
    for (const auto& [text, expected, warnings] : cases)
    {
        write("a.xml", text);
        Chip chip;
        chip.chipName = chip.version = "old";
        chip.inputMax = chip.ispMax = 1;
        chip.pages = {{0, "Old", ""}};
        QSignalSpy spy(&chip, &Chip::valueChanged);
        warningCount = 0;
        chip.loadXml("chip/a.xml", false);
        EXPECT_EQ(summary(chip).toUtf8().toStdString(), expected.toStdString()) << text.toStdString();
        EXPECT_EQ(spy.count(), 1) << text.toStdString();
        EXPECT_EQ(warningCount, warnings) << text.toStdString();
    }
}

TEST_F(ChipTest, PreloadReadsTheHeadOnly)
{
    write("a.xml", "<Table ChipName=\"C\" InputMax=\"2\"><Page Name=\"P\"/></Broken");
    Chip chip;
    chip.loadXml("chip/a.xml", true);
    EXPECT_EQ(summary(chip), "C|2|0||");
    EXPECT_EQ(warningCount, 0);
}

TEST_F(ChipTest, WhatIsNoFileChangesNothing)
{
    QDir().mkpath("chip/directory.xml");
    for (const auto* name : {"chip/missing.xml", "", "chip/directory.xml"})
    {
        Chip chip;
        chip.chipName = "old";
        QSignalSpy spy(&chip, &Chip::valueChanged);
        warningCount = 0;
        chip.loadXml(name, false);
        EXPECT_EQ(summary(chip), "old|0|0||") << name;
        EXPECT_EQ(spy.count(), 1) << name;
        EXPECT_GE(warningCount, 2) << name;
    }
    EXPECT_TRUE(Chips().xmls.isEmpty());
}

TEST_F(ChipTest, HugeDescriptionsAreBounded)
{
    const auto size = 10 << 20;
    const std::pair<QByteArray, int> cases[]{
        {QByteArray("<Page Name=\"P\"/>").repeated(size / 16), 1000},
        {"<Page Name=\"" + QByteArray(size, 'n') + "\"/>", 1},
        {"<Page Name=\"P\"/></Table>" + QByteArray(64 << 20, ' '), 0},
    };
    for (const auto& [text, pages] : cases)
    {
        write("a.xml", "<Table ChipName=\"C\">" + text + "</Table>");
        Chips found;
        found.chip.loadXml("chip/a.xml", false);
        EXPECT_EQ(found.chip.pages.size(), pages) << text.left(20).toStdString();
        for (const auto& page : qAsConst(found.chip.pages))
            ASSERT_LE(page.name.size(), int(t_common::limit::listText));
    }
    write("a.xml", "<Table ChipName=\"" + QByteArray(size, 'n') + "\"/>");
    EXPECT_LE(Chips().chips.firstKey().size(), int(t_common::limit::listText));
}

TEST_F(ChipTest, DirectoryIsSearched)
{
    Chips none;
    EXPECT_TRUE(none.chips.isEmpty()) << "no directory";
    EXPECT_EQ(warningCount, 0);

    write("z.xml", "<Table ChipName=\"A\" InputMax=\"1\"/>");
    write("a.xml", "<Table ChipName=\"B\" InputMax=\"2\"/>");
    write("foreign.xml", "<Other/>");
    write("c.txt", "<Table ChipName=\"Text\"/>");
    Chips found;
    EXPECT_EQ(found.xmls.size(), 3);
    EXPECT_EQ(found.chips.keys(), QStringList({"", "A", "B"}));
    EXPECT_EQ(found.chips.value("A"), "chip/z.xml");
    EXPECT_EQ(summary(found.chip), "|0|0||") << "none is chosen yet";

    write("twin.xml", "<Table ChipName=\"A\" InputMax=\"7\"/>");
    Chips twins;
    const auto last = twins.xmls.indexOf("z.xml") > twins.xmls.indexOf("twin.xml") ? "chip/z.xml" : "chip/twin.xml";
    EXPECT_EQ(twins.chips.value("A"), last) << "the one that was read last";
}

TEST_F(ChipTest, ChoiceIsLoadedAndRemembered)
{
    write("a.xml", "<Table ChipName=\"A\"><Page Name=\"P\"/><Page Name=\"Q\"/></Table>");
    write("b.xml", "<Table ChipName=\"B\" InputMax=\"2\"/>");
    Chips found;
    QStringList seen;
    QObject::connect(&found, &Chips::chipChanged, [&] { seen.append(summary(found.chip)); });
    for (const auto* name : {"A", "B", "B", "gone"})
    {
        found.chipSet(name);
        EXPECT_EQ(config.setting.chipName, name);
    }
    EXPECT_EQ(seen, QStringList({"A|0|0||P//0,Q//0", "B|2|0||", "B|2|0||", "B|2|0||"})) << "inside the call";
    config.setting.chipName.clear();
}
