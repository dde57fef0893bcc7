#include "tests/support/files.h"
#include "tuning-client/source/config/config.h"
#include "tuning-common/source/limits.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <stdexcept>
#include <sys/stat.h>

using rest::Camera;

/// A home directory without anything in it.
class ConfigTest : public testing::Test
{
protected:
    ConfigTest() : homeBefore(qgetenv("HOME")) { qputenv("HOME", home.path().toUtf8()); }
    ~ConfigTest() override { qputenv("HOME", homeBefore); }

    QString path(const QString& name) const { return home.path() + "/.tuning-client/" + name; }

    void write(const QString& name, const QByteArray& text) const
    {
        QDir().mkpath(home.path() + "/.tuning-client");
        fileWrite(path(name), text);
    }

    QJsonObject read(const QString& name) const
    {
        const auto document = QJsonDocument::fromJson(fileRead(path(name)));
        EXPECT_TRUE(document.isObject()) << str(name);
        return document.object();
    }

    /// One run of the program: everything read, then written.
    static void run(const std::function<void(cfg::Config&)>& action = {})
    {
        cfg::Config run;
        run.preferences.restore();
        if (action)
            action(run);
    }

    static void expectDefaults(const cfg::Config& run, const std::string& why)
    {
        const auto& preferences = run.preferences;
        EXPECT_EQ(str(preferences.calibration.path), str(QDir::currentPath())) << why;
        EXPECT_EQ(str(preferences.capture.path), str(QDir::homePath() + "/Pictures")) << why;
        EXPECT_EQ(preferences.capture.snapshotType, Camera::Raw08) << why;
        EXPECT_FALSE(preferences.capture.isAe || preferences.capture.isAf || preferences.capture.isAwb) << why;
        EXPECT_EQ(str(preferences.server.type), "http") << why;
        EXPECT_TRUE(preferences.server.http.collection.isEmpty()) << why;
        EXPECT_EQ(preferences.server.http.index, 0) << why;
        EXPECT_FALSE(preferences.window.isAutoResize) << why;
        EXPECT_EQ(str(run.setting.chipName), "") << why;
        EXPECT_EQ(run.setting.inputIndex, 0) << why;
        EXPECT_EQ(run.setting.ispIndex, 0) << why;
        EXPECT_FALSE(run.setting.isViewTemplate || run.setting.isViewTransfer) << why;
        EXPECT_TRUE(run.widget.jRoot.isEmpty()) << why;
    }

    const QTemporaryDir home;
    const QByteArray homeBefore;
};

TEST_F(ConfigTest, FirstRunHasDefaultsAndWritesThem)
{
    run(
        [this](cfg::Config& first)
        {
            expectDefaults(first, "first run");
            EXPECT_FALSE(QDir(home.path() + "/.tuning-client").exists()) << "nothing before exit";
        });
    EXPECT_EQ(QDir(home.path() + "/.tuning-client").entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList({"preferences.json", "setting.json"}));
    const auto jPreferences = read("preferences.json");
    EXPECT_EQ(jPreferences.keys(), QStringList({"calibration", "capture", "server", "window"}));
    EXPECT_EQ(jPreferences["server"].toObject(),
              QJsonObject({{"type", "http"}, {"index", 0}, {"hosts", QJsonArray()}, {"port", ""}}));
    EXPECT_EQ(read("setting.json"), QJsonObject({{"chip.name", ""},
                                                 {"input.index", 0},
                                                 {"isp.index", 0},
                                                 {"view.template", false},
                                                 {"view.transfer", false}}));

    run([](cfg::Config& second) { second.widget.jRoot["A Page"]; });
    EXPECT_EQ(read("widget.json"), QJsonObject({{"A Page", QJsonValue()}}));
}

TEST_F(ConfigTest, EveryFieldSurvives)
{
    run(
        [](cfg::Config& first)
        {
            auto& preferences = first.preferences;
            preferences.calibration.path = "/calibration/ä";
            preferences.capture = {true, false, true, "/captures", Camera::Yuv};
            preferences.server.type = "uart";
            preferences.server.uart.port = "/dev/ttyS1";
            preferences.server.http.add("board", 8080);
            preferences.server.http.add("", 65535);
            preferences.server.http.index = 1;
            preferences.window.isAutoResize = true;
            first.setting.chipName = "Chip \"1\"";
            first.setting.inputIndex = -3;
            first.setting.ispIndex = 5;
            first.setting.isViewTransfer = true;
        });
    const auto jCapture = read("preferences.json")["capture"].toObject();
    EXPECT_EQ(jCapture, QJsonObject({{"ae.enable", true},
                                     {"af.enable", false},
                                     {"awb.enable", true},
                                     {"save.path", "/captures"},
                                     {"image.type", 5}}));
    run(
        [](cfg::Config& second)
        {
            auto& preferences = second.preferences;
            EXPECT_EQ(str(preferences.calibration.path), "/calibration/ä");
            EXPECT_TRUE(preferences.capture.isAe && !preferences.capture.isAf && preferences.capture.isAwb);
            EXPECT_EQ(str(preferences.capture.path), "/captures");
            EXPECT_EQ(preferences.capture.snapshotType, Camera::Yuv);
            EXPECT_EQ(str(preferences.server.type), "uart");
            EXPECT_EQ(str(preferences.server.uart.port), "/dev/ttyS1");
            const QVector<QPair<QString, uint16_t>> hosts{{"board", 8080}, {"", 65535}};
            EXPECT_EQ(preferences.server.http.collection, hosts);
            EXPECT_EQ(preferences.server.http.server().second, 65535);
            EXPECT_TRUE(preferences.window.isAutoResize);
            EXPECT_EQ(str(second.setting.chipName), "Chip \"1\"");
            EXPECT_EQ(second.setting.inputIndex, -3);
            EXPECT_EQ(second.setting.ispIndex, 5);
            EXPECT_TRUE(!second.setting.isViewTemplate && second.setting.isViewTransfer);
            preferences.restore();
            EXPECT_EQ(preferences.server.http.collection, hosts + hosts) << "the list is added to";
        });
}

TEST_F(ConfigTest, UnreadableContentGivesDefaultsAndIsReplaced)
{
    const auto depth = 100000;
    const auto hosts = "{\"chip.name\":\"x\",\"server\":{\"hosts\":[" + QByteArray("{},").repeated(2 << 20) + "{}]}}";
    ASSERT_GT(hosts.size(), int(t_common::limit::configFile));
    const QByteArray contents[]{
        "",
        "not JSON",
        "{\"chip.name\":\"x\"",
        "{\"chip.name\":\"x\"} y",
        "[{\"chip.name\":\"x\"}]",
        QByteArray("\xff\xfe{\0\"\0}\0", 8),
        QByteArray("{\"chip.name\":").append(QByteArray(depth, '[')),
        QByteArray("{\"a\":").repeated(depth) + "1" + QByteArray(depth, '}'),
        hosts,
    };
    for (const auto& content : contents)
    {
        const auto why = content.left(40).toStdString() + " " + std::to_string(content.size());
        for (const auto* name : {"preferences.json", "setting.json", "widget.json"})
            write(name, content);
        run([&](cfg::Config& broken) { expectDefaults(broken, why); });
        EXPECT_EQ(read("preferences.json").size(), 4) << why;
        EXPECT_EQ(read("setting.json").size(), 5) << why;
    }
    write("setting.json", "{\"chip.name\":\"a\xff\xfe\"}");
    run([](cfg::Config& broken) { EXPECT_EQ(broken.setting.chipName, QString::fromUtf8("a\xff\xfe")); });
}

TEST_F(ConfigTest, ValuesOfAnotherKindGiveDefaults)
{
    const std::pair<QByteArray, QByteArray> files[]{
        {R"({"calibration":{"save.path":7},"window":{"auto.resize":"true"},
             "capture":{"save.path":"","image.type":"3","ae.enable":1,"af.enable":"true","awb.enable":{"a":true}},
             "server":{"index":"1","hosts":{"ip":"a","port":1},"type":7}})",
         R"({"chip.name":5,"input.index":"1","isp.index":0.5,"view.template":1,"view.transfer":"true"})"},
        {R"({"calibration":"x","window":5,"capture":[],"server":null})", R"({"chip.name":{},"isp.index":1e300})"},
        {R"({"capture":{"image.type":-1},"server":{"type":"pigeon"}})", "{}"},
        {R"({"capture":{"image.type":6}})", "{}"},
        {R"({"capture":{"image.type":-2147483648}})", "{}"},
    };
    for (const auto& [preferences, setting] : files)
    {
        write("preferences.json", preferences);
        write("setting.json", setting);
        run([&, p = preferences](cfg::Config& wrong) { expectDefaults(wrong, p.toStdString()); });
        EXPECT_TRUE(read("preferences.json")["capture"].isObject());
    }
}

TEST_F(ConfigTest, HostsAreTakenAsTheyStand)
{
    write("preferences.json", R"({"server":{"index":7,"hosts":[{"ip":"a","port":70000},{"port":"80"},5,null,
        {"ip":5,"port":-1},{"ip":"b","port":1e300}]}})");
    run(
        [](cfg::Config& odd)
        {
            auto& http = odd.preferences.server.http;
            const QVector<QPair<QString, uint16_t>> hosts{{"a", 4464}, {"", 0},     {"", 0},
                                                          {"", 0},     {"", 65535}, {"b", 0}};
            EXPECT_EQ(http.collection, hosts);
            for (const int index : {7, 6, -1, INT_MIN})
            {
                http.index = index;
                EXPECT_THROW(http.server(), std::logic_error) << index;
            }
            http.index = 5;
            EXPECT_EQ(str(http.server().first), "b");
        });
    const auto count = int(t_common::limit::listElements);
    write("preferences.json", "{\"server\":{\"hosts\":[" + QByteArray("{},").repeated(count + 5) + "{}]}}");
    run([&](cfg::Config& many) { EXPECT_EQ(many.preferences.server.http.collection.size(), count); });
}

TEST_F(ConfigTest, UnknownKeysSurvive)
{
    write("preferences.json", R"({"capture":{"new":[1,{"a":null}]},"later":{"b":2}})");
    write("setting.json", R"({"later":"c"})");
    write("widget.json", R"({"Some Page":{"size":{"width":5,"height":6},"other":1}})");
    run();
    EXPECT_EQ(read("preferences.json")["capture"].toObject()["new"].toArray().size(), 2);
    EXPECT_EQ(read("preferences.json")["later"].toObject()["b"], 2);
    EXPECT_EQ(read("setting.json")["later"], "c");
    EXPECT_EQ(read("widget.json")["Some Page"].toObject()["other"], 1);
}

TEST_F(ConfigTest, WhatIsNoFileIsLeftAlone)
{
    const auto pipeMake = [](const QString& name) { ASSERT_EQ(mkfifo(name.toUtf8(), 0600), 0); };
    const auto linkMake = [](const QString& name) { ASSERT_TRUE(QFile::link("/dev/zero", name)); };
    const auto directoryMake = [](const QString& name) { ASSERT_TRUE(QDir().mkpath(name + "/below")); };
    for (const auto& make : {std::function<void(QString)>(pipeMake), {linkMake}, {directoryMake}})
    {
        QDir().mkpath(path(""));
        for (const auto* name : {"preferences.json", "setting.json", "widget.json"})
            make(path(name));
        run([this](cfg::Config& odd) { expectDefaults(odd, "no files"); });
        for (const auto* name : {"preferences.json", "setting.json", "widget.json"})
            EXPECT_FALSE(QFileInfo(path(name)).isFile()) << name;
        QDir(path("")).removeRecursively();
    }
    fileWrite(home.path() + "/.tuning-client", "");
    run([this](cfg::Config& blocked) { expectDefaults(blocked, "a file in place of the directory"); });
    EXPECT_EQ(fileRead(home.path() + "/.tuning-client"), "");

    qputenv("HOME", (home.path() + "/no/such/home").toUtf8());
    run([this](cfg::Config& homeless) { expectDefaults(homeless, "no home"); });
    EXPECT_FALSE(QFile::exists(home.path() + "/no"));
}

TEST_F(ConfigTest, LinkedFileIsWrittenThrough)
{
    const auto real = home.path() + "/real.json";
    fileWrite(real, "{\"chip.name\":\"linked\"}");
    QDir().mkpath(path(""));
    ASSERT_TRUE(QFile::link(real, path("setting.json")));
    run([](cfg::Config& linked) { EXPECT_EQ(str(linked.setting.chipName), "linked"); });
    EXPECT_TRUE(QFileInfo(path("setting.json")).isSymLink());
    EXPECT_TRUE(fileRead(real).contains("view.transfer"));
}

// The global object, which a whole process destroys at its end, when no application is left.
TEST(ConfigExitTest, ProcessExitWritesTheFiles)
{
    GTEST_FLAG_SET(death_test_style, "fast");
    const auto directory = QDir::homePath() + "/.tuning-client";
    EXPECT_EXIT(
        {
            config.setting.chipName = "At Exit";
            config.widget.jRoot["A Page"];
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
    for (const auto* name : {"preferences.json", "setting.json", "widget.json"})
    {
        const auto text = fileRead(directory + "/" + name);
        EXPECT_TRUE(QJsonDocument::fromJson(text).isObject()) << text.constData();
        EXPECT_EQ(text.contains("At Exit"), std::string(name) == "setting.json");
    }
    QDir(directory).removeRecursively();
}
