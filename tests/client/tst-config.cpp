#include "tests/support/files.h"
#include "tests/support/qt-main.h"
#include "tuning-client/source/config/config.h"
#include "tuning-common/source/limits.h"

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

    static std::string text(const QJsonObject& jObject) { return QJsonDocument(jObject).toJson().toStdString(); }

    /// What a run has in memory, as it would write it.
    static std::string held(cfg::Config& run)
    {
        run.preferences.store();
        run.setting.store();
        return text({{"p", run.preferences.jRoot}, {"s", run.setting.jRoot}, {"w", run.widget.jRoot}});
    }

    static std::string defaults()
    {
        const QString all =
            R"({"p":{"calibration":{"save.path":"%1"},
                     "capture":{"ae.enable":false,"af.enable":false,"awb.enable":false,"image.type":0,"save.path":"%2"},
                     "server":{"type":"http","index":0,"hosts":[],"port":""},
                     "window":{"auto.resize":false}},
                "s":{"chip.name":"","input.index":0,"isp.index":0,"view.template":false,"view.transfer":false},
                "w":{}})";
        const auto filled = all.arg(QDir::currentPath(), QDir::homePath() + "/Pictures");
        return text(QJsonDocument::fromJson(filled.toUtf8()).object());
    }

    const QTemporaryDir home;
    const QByteArray homeBefore;
};

TEST_F(ConfigTest, FirstRunHasDefaultsAndWritesThem)
{
    run(
        [this](cfg::Config& first)
        {
            EXPECT_TRUE(first.preferences.server.http.collection.isEmpty());
            EXPECT_EQ(held(first), defaults());
            EXPECT_FALSE(QDir(home.path() + "/.tuning-client").exists()) << "nothing before exit";
        });
    EXPECT_EQ(QDir(path("")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList({"preferences.json", "setting.json"}));
    EXPECT_EQ(text({{"p", read("preferences.json")}, {"s", read("setting.json")}, {"w", QJsonObject()}}), defaults());

    run([](cfg::Config& second) { second.widget.jRoot["A Page"]; });
    EXPECT_EQ(read("widget.json"), QJsonObject({{"A Page", QJsonValue()}}));
}

TEST_F(ConfigTest, EveryFieldSurvives)
{
    const QVector<QPair<QString, uint16_t>> hosts{{"board", 8080}, {"", 65535}};
    run(
        [&](cfg::Config& first)
        {
            auto& preferences = first.preferences;
            preferences.calibration.path = "/calibration/ä";
            preferences.capture = {true, false, true, "/captures", Camera::Yuv};
            preferences.server.type = "uart";
            preferences.server.uart.port = "/dev/ttyS1";
            preferences.server.http.collection = hosts;
            preferences.server.http.index = 1;
            preferences.window.isAutoResize = true;
            first.setting.chipName = "Chip \"1\"";
            first.setting.inputIndex = -3;
            first.setting.ispIndex = 5;
            first.setting.isViewTransfer = true;
        });
    const auto all = text(QJsonDocument::fromJson(R"({
        "p":{"calibration":{"save.path":"/calibration/ä"},
             "capture":{"ae.enable":true,"af.enable":false,"awb.enable":true,"image.type":5,"save.path":"/captures"},
             "server":{"type":"uart","index":1,"hosts":[{"ip":"board","port":8080},{"ip":"","port":65535}],
                       "port":"/dev/ttyS1"},
             "window":{"auto.resize":true}},
        "s":{"chip.name":"Chip \"1\"","input.index":-3,"isp.index":5,"view.template":false,"view.transfer":true},
        "w":{}})")
                              .object());
    EXPECT_EQ(text({{"p", read("preferences.json")}, {"s", read("setting.json")}, {"w", QJsonObject()}}), all);
    run(
        [&](cfg::Config& second)
        {
            EXPECT_EQ(held(second), all);
            EXPECT_EQ(second.preferences.server.http.server(), hosts[1]);
            second.preferences.restore();
            EXPECT_EQ(second.preferences.server.http.collection, hosts + hosts) << "the list is added to";
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
        run([&](cfg::Config& broken) { EXPECT_EQ(held(broken), defaults()) << why; });
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
        run([&, p = preferences](cfg::Config& wrong) { EXPECT_EQ(held(wrong), defaults()) << p.toStdString(); });
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
    const auto linked = home.path() + "/real.json";
    ASSERT_TRUE(QFile::rename(path("setting.json"), linked) && QFile::link(linked, path("setting.json")));
    run();
    EXPECT_TRUE(QFileInfo(path("setting.json")).isSymLink());
    EXPECT_TRUE(fileRead(linked).contains("view.transfer")) << "written through";
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
        run([](cfg::Config& odd) { EXPECT_EQ(held(odd), defaults()) << "no files"; });
        for (const auto* name : {"preferences.json", "setting.json", "widget.json"})
            EXPECT_FALSE(QFileInfo(path(name)).isFile()) << name;
        QDir(path("")).removeRecursively();
    }
    fileWrite(home.path() + "/.tuning-client", "");
    run([](cfg::Config& blocked) { EXPECT_EQ(held(blocked), defaults()) << "a file in place of the directory"; });
    EXPECT_EQ(fileRead(home.path() + "/.tuning-client"), "");

    qputenv("HOME", (home.path() + "/no/such/home").toUtf8());
    run([](cfg::Config& homeless) { EXPECT_EQ(held(homeless), defaults()) << "no home"; });
    EXPECT_FALSE(QFile::exists(home.path() + "/no"));
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
