#include "tuning-client/source/module/template-tree-model.h"

#include "tests/support/files.h"
#include "tests/support/outcome.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/file/xml-document.h"

#include <sys/stat.h>

namespace
{
QString write(const QByteArray& content)
{
    fileWrite("chip.xml", content);
    return "chip.xml";
}

std::string readFailure(const QString& fileName)
{
    return failureOf<std::runtime_error>([&] { xmlDocumentRead(fileName); });
}

QByteArray times(int count, const QByteArray& text) { return text.repeated(count); }

int warningCount = 0;
void countWarning(QtMsgType type, const QMessageLogContext&, const QString&) { warningCount += type == QtWarningMsg; }

int warningsOf(const QString& fileName)
{
    warningCount = 0;
    const auto previous = qInstallMessageHandler(countWarning);
    const TemplateTreeModel model(fileName);
    qInstallMessageHandler(previous);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal).isValid());
    EXPECT_FALSE(model.index(0, 0).isValid());
    return warningCount;
}
} // namespace

TEST(TemplateTreeModel, ListsTheChildrenOfTheTable)
{
    TemplateTreeModel model(write(R"(<?xml version="1.0"?>
        <Table ChipName="One">
            <Page Name="Auto Exposure" Type="AE" Level="2"><Page Name="inner"/></Page>
            <!-- remark -->
            <Other Name="Gamma"/>
            <Page/>
        </Table>)"));
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);

    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.columnCount(), 1);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "One");
    EXPECT_FALSE(model.headerData(0, Qt::Vertical).isValid());
    EXPECT_EQ(model.index(0, 0).data().toString(), "Auto Exposure");
    EXPECT_EQ(model.index(1, 0).data().toString(), "Gamma");
    EXPECT_EQ(model.index(2, 0).data().toString(), "");
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 0);
    EXPECT_EQ(model.columnCount(model.index(0, 0)), 3);
    EXPECT_FALSE(model.index(1, 0).parent().isValid());
    EXPECT_EQ(model.flags(model.index(1, 0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
}

TEST(TemplateTreeModel, StaysEmptyForAFileThatIsNoDescription)
{
    EXPECT_EQ(warningsOf(write("<Chip><Page Name='a'/></Chip>")), 0);
    EXPECT_EQ(warningsOf("missing.xml"), 1);
    EXPECT_EQ(warningsOf(write("<Table ChipName='x'><Page>")), 1);
    EXPECT_EQ(warningsOf(write("")), 1);
}

TEST(TreeModel, WalksMoreThanTwoLevels)
{
    struct Model : TreeModel
    {
        Model()
        {
            pRootItem = std::make_unique<TreeItem>(QVector<QVariant>{"a", "b"});
            auto pMiddle = new TreeItem({"first"}, pRootItem.get());
            pRootItem->appendChild(pMiddle);
            pRootItem->appendChild(new TreeItem({"second"}, pRootItem.get()));
            pMiddle->appendChild(new TreeItem({"x"}, pMiddle));
            pMiddle->appendChild(new TreeItem({"y"}, pMiddle));
        }
    } model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);

    const auto y = model.index(1, 0, model.index(0, 0));
    EXPECT_EQ(y.data().toString(), "y");
    EXPECT_EQ(y.parent(), model.index(0, 0));
    EXPECT_FALSE(model.index(0, 1).data().isValid());
    EXPECT_EQ(model.rowCount(model.index(0, 1)), 0);
}

TEST(XmlDocument, RefusesWhatWouldEndTheProcess)
{
    const std::pair<const char*, QByteArray> cases[] = {
        {"nested too deeply", times(50000, "<a>") + times(50000, "</a>")},
        {"too many nodes", "<a>" + times(2000001, "<b/>") + "</a>"},
        {"too many attributes", "<a>text = 'x'<b " + times(1025, "c = '' ") + "/></a>"},
        {"declarations of its own", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"},
        {"larger than 64 MiB", "<a>" + QByteArray((64 << 20) + 1, ' ') + "</a>"},
        {"(line 2)", "<a>\n<b></a>"},
    };
    for (const auto& [reason, content] : cases)
    {
        const auto failure = readFailure(write(content));
        EXPECT_TRUE(contains(failure, reason)) << failure;
        EXPECT_TRUE(contains(failure, ": chip.xml")) << failure;
    }
}

TEST(XmlDocument, ReadsRegularFilesOnly)
{
    ASSERT_EQ(mkfifo("pipe.xml", 0600), 0);
    EXPECT_EQ(readFailure("pipe.xml"), "Not a regular file: pipe.xml");
    EXPECT_EQ(readFailure("."), "Not a regular file: .");
    EXPECT_NE(readFailure("missing.xml"), "");
}

TEST(XmlDocument, ReadsUpToTheLimits)
{
    EXPECT_EQ(readFailure(write(times(256, "<a>") + times(256, "</a>"))), "");
    QByteArray attributes;
    for (int i = 0; i < 1000; ++i)
        attributes += " a" + QByteArray::number(i) + "=\"&gt;\"";
    EXPECT_EQ(
        readFailure(write("<!DOCTYPE a SYSTEM 'a.dtd'><a" + attributes + ">" + times(5000, "b='c'<b/>") + "</a>")), "");
    const auto document =
        xmlDocumentRead(write("\xef\xbb\xbf<?xml version='1.0' encoding='UTF-8'?><a b='\xe2\x82\xac'/>"));
    EXPECT_EQ(document.documentElement().attribute("b"), QString(QChar(0x20ac)));
}
