// A calibration of 20 MB: what it costs to read it, to show it as a tree, and to go away from it.

#include "tuning-client/source/control/dom-tree-widget.h"
#include "tuning-client/source/control/xml-document.h"
#include "tuning-client/source/skin.h"

#include <QApplication>
#include <QFile>
#include <QTest>
#include <benchmark/benchmark.h>

namespace
{
QString sample()
{
    static const QString name = "/tmp/bench-calibration.xml";
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        return name;
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<calibration>\n");
    for (int i = 0; file.pos() < 20 << 20; ++i)
    {
        file.write("  <level gain=\"" + QByteArray::number(i) + "\">\n");
        for (const char* pName : {"strength", "sigma", "radius"})
            file.write(QByteArray("    <") + pName + " size=\"4\">1.62 -0.47 -0.15 " + QByteArray::number(i) + "</" +
                       pName + ">\n");
        file.write("  </level>\n");
    }
    file.write("</calibration>\n");
    return name;
}

void read(benchmark::State& state)
{
    const auto name = sample();
    for (auto _ : state)
        benchmark::DoNotOptimize(xmlDocumentRead(name));
    QFile::remove(name);
}
BENCHMARK(read)->Unit(benchmark::kMillisecond);

void readAndShow(benchmark::State& state)
{
    const auto name = sample();
    DomTreeWidget tree(nullptr);
    tree.resize(800, 600);
    tree.show();
    for (auto _ : state)
    {
        auto document = xmlDocumentRead(name);
        tree.domBinding(document);
        tree.expandToDepth(0);
        QCoreApplication::processEvents();
    }
    QFile::remove(name);
}
BENCHMARK(readAndShow)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    skin::Style::Kestrix();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
