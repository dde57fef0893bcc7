#include "tuning-client/source/config/config.h"
#include "tuning-common/source/limits.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <sys/stat.h>

using rest::Camera;

namespace
{
// QString is not printable by the test library.
std::string str(const QString& text) { return text.toStdString(); }

std::string serverFailure(cfg::Server::Http& http)
{
    try
    {
        http.server();
    }
    catch (const std::logic_error& error)
    {
        return error.what();
    }
    return {};
}
} // namespace

/// A home directory without anything in it.
class ConfigTest : public testing::Test
{
protected:
    ConfigTest() : homeBefore(qgetenv("HOME")) { qputenv("HOME", home.path().toUtf8()); }
    ~ConfigTest() override { qputenv("HOME", homeBefore); }

    QString path(const QString& name) const { return home.path() + "/.tuning-client/" + name; }
    bool exists(const QString& name) const { return QFile::exists(path(name)); }

    void write(const QString& name, const QByteArray& text) const
    {
        QDir().mkpath(home.path() + "/.tuning-client");
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QJsonObject read(const QString& name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << str(name);
        const auto document = QJsonDocument::fromJson(file.readAll());
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
            EXPECT_EQ(serverFailure(first.preferences.server.http), "Server list is empty");
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
    QByteArray hosts(QByteArray("{\"server\":{\"hosts\":[").append(QByteArray("{},").repeated(2 << 20)));
    hosts.append("{}]},\"chip.name\":\"x\"}");
    ASSERT_GT(hosts.size(), int(t_common::limit::configFile));
    const QByteArray contents[]{
        "",
        " \n",
        "not JSON",
        "{\"chip.name\":\"x\"",
        "{\"chip.name\":\"x\"} y",
        "[{\"chip.name\":\"x\"}]",
        "42",
        "\"text\"",
        "null",
        QByteArray("\xff\xfe{\0\"\0}\0", 8),
        QByteArray("\0{}", 3),
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

TEST_F(ConfigTest, WrongTypesGiveDefaults)
{
    const char* sections[]{"calibration", "capture", "server", "window"};
    const struct
    {
        const char* section; // null for the file of the settings
        const char* key;
        bool isText;
        bool isNumber;
        bool isFlag;
    } keys[]{
        {"calibration", "save.path", true, false, false}, {"capture", "save.path", true, false, false},
        {"capture", "image.type", false, true, false},    {"capture", "ae.enable", false, false, true},
        {"capture", "af.enable", false, false, true},     {"capture", "awb.enable", false, false, true},
        {"server", "index", false, true, false},          {"server", "hosts", false, false, false},
        {"window", "auto.resize", false, false, true},    {nullptr, "chip.name", true, false, false},
        {nullptr, "input.index", false, true, false},     {nullptr, "isp.index", false, true, false},
        {nullptr, "view.template", false, false, true},   {nullptr, "view.transfer", false, false, true},
    };
    const QJsonArray values{QJsonValue(), "text", "", "true", true, 7, 0.5, 1e300, QJsonObject({{"a", 1}})};
    for (const auto& value : values)
    {
        QJsonObject jPreferences;
        for (const auto* section : sections)
        {
            QJsonObject jSection;
            for (const auto& key : keys)
            {
                const bool isRight = (key.isText && value.isString()) || (key.isFlag && value.isBool()) ||
                                     (key.isNumber && value == QJsonValue(7) && QString(key.key) != "image.type");
                if (key.section && QString(key.section) == section && !isRight)
                    jSection[key.key] = value;
            }
            jPreferences[section] = jSection;
        }
        QJsonObject jSetting;
        for (const auto& key : keys)
        {
            const bool isRight = (key.isText && value.isString()) || (key.isFlag && value.isBool()) ||
                                 (key.isNumber && value == QJsonValue(7));
            if (!key.section && !isRight)
                jSetting[key.key] = value;
        }
        write("preferences.json", QJsonDocument(jPreferences).toJson());
        write("setting.json", QJsonDocument(jSetting).toJson());
        QFile::remove(path("widget.json"));
        run([&](cfg::Config& wrong) { expectDefaults(wrong, QJsonDocument(jPreferences).toJson().toStdString()); });

        for (const auto* section : sections)
            jPreferences[section] = value;
        write("preferences.json", QJsonDocument(jPreferences).toJson());
        run([&](cfg::Config& wrong) { expectDefaults(wrong, "sections of another type"); });
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
            for (const int index : {7, 6, -1, INT_MIN, INT_MAX})
            {
                http.index = index;
                EXPECT_EQ(serverFailure(http), "Server index is out of range") << index;
            }
            http.index = 5;
            EXPECT_EQ(str(http.server().first), "b");
        });

    QJsonArray jHosts;
    for (size_t i = 0; i < t_common::limit::listElements + 5; ++i)
        jHosts.append(QJsonObject({{"ip", "h"}, {"port", 1}}));
    write("preferences.json", QJsonDocument(QJsonObject({{"server", QJsonObject({{"hosts", jHosts}})}})).toJson());
    run([](cfg::Config& many)
        { EXPECT_EQ(many.preferences.server.http.collection.size(), int(t_common::limit::listElements)); });
}

TEST_F(ConfigTest, ImageTypesOutsideTheListAreTheFirst)
{
    for (const auto* type : {"-1", "6", "2147483647", "-2147483648", "1e10"})
    {
        write("preferences.json", QByteArray("{\"capture\":{\"image.type\":").append(type).append("}}"));
        run([&](cfg::Config& odd) { EXPECT_EQ(odd.preferences.capture.snapshotType, Camera::Raw08) << type; });
    }
}

TEST_F(ConfigTest, UnknownKeysSurvive)
{
    write("preferences.json", R"({"capture":{"new":[1,{"a":null}]},"later":{"b":2}})");
    write("setting.json", R"({"later":"c"})");
    write("widget.json", R"({"Some Page":{"size":{"width":5,"height":6},"other":1}})");
    run();
    EXPECT_EQ(read("preferences.json")["capture"].toObject()["new"].toArray().size(), 2);
    EXPECT_EQ(read("preferences.json")["capture"].toObject()["image.type"], 0);
    EXPECT_EQ(read("preferences.json")["later"].toObject()["b"], 2);
    EXPECT_EQ(read("setting.json")["later"], "c");
    EXPECT_EQ(read("widget.json")["Some Page"].toObject()["other"], 1);
}

TEST_F(ConfigTest, TransportSurvivesWithTheRecordsOfBoth)
{
    const struct
    {
        const char* file;
        const char* type;
    } cases[]{
        {R"({"server":{"port":"/dev/ttyS1","index":1,"hosts":[{"ip":"a","port":1},{"ip":"b","port":2}]}})", "http"},
        {R"({"server":{"type":"pigeon"}})", "http"},
        {R"({"server":{"type":7}})", "http"},
        {R"({"server":{"type":"uart"}})", "uart"},
        {R"({"server":{"type":"http"}})", "http"},
    };
    for (const auto& [file, type] : cases)
    {
        write("preferences.json", file);
        run([text = file, expected = type](cfg::Config& first)
            { EXPECT_EQ(str(first.preferences.server.type), expected) << text; });
        EXPECT_EQ(str(read("preferences.json")["server"].toObject()["type"].toString()), type) << file;
    }

    write("preferences.json", cases[0].file);
    run([](cfg::Config& first) { first.preferences.server.type = "uart"; });
    run(
        [](cfg::Config& second)
        {
            auto& server = second.preferences.server;
            EXPECT_EQ(str(server.type), "uart");
            EXPECT_EQ(str(server.uart.port), "/dev/ttyS1");
            EXPECT_EQ(str(server.http.server().first), "b");
            EXPECT_EQ(str(server.fullFileName), "");
        });
    EXPECT_EQ(QDir(home.path() + "/.tuning-client").entryList(QDir::Files),
              QStringList({"preferences.json", "setting.json"}));
}

TEST_F(ConfigTest, WhatIsNoFileIsLeftAlone)
{
    const QString names[]{"preferences.json", "setting.json", "widget.json"};
    QDir().mkpath(home.path() + "/.tuning-client");
    for (const auto& name : names)
        ASSERT_EQ(mkfifo(path(name).toUtf8(), 0600), 0);
    run([](cfg::Config& pipes) { expectDefaults(pipes, "pipes"); });
    for (const auto& name : names)
    {
        struct stat info
        {
        };
        ASSERT_EQ(lstat(path(name).toUtf8(), &info), 0);
        EXPECT_TRUE(S_ISFIFO(info.st_mode));
        QFile::remove(path(name));
        ASSERT_TRUE(QFile::link("/dev/zero", path(name)));
    }
    run([](cfg::Config& devices) { expectDefaults(devices, "devices"); });
    for (const auto& name : names)
    {
        QFile::remove(path(name));
        QDir().mkpath(path(name) + "/below");
    }
    run([](cfg::Config& directories) { expectDefaults(directories, "directories"); });
    QDir(home.path() + "/.tuning-client").removeRecursively();

    QFile blocker(home.path() + "/.tuning-client");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    run([](cfg::Config& blocked) { expectDefaults(blocked, "a file in place of the directory"); });
    EXPECT_EQ(blocker.size(), 0);
    blocker.remove();

    qputenv("HOME", (home.path() + "/no/such/home").toUtf8());
    run([](cfg::Config& homeless) { expectDefaults(homeless, "no home"); });
    EXPECT_FALSE(QFile::exists(home.path() + "/no"));
}

TEST_F(ConfigTest, LinkedFileIsWrittenThrough)
{
    QDir().mkpath(home.path() + "/.tuning-client");
    QFile real(home.path() + "/real.json");
    ASSERT_TRUE(real.open(QIODevice::WriteOnly));
    real.write("{\"chip.name\":\"linked\"}");
    real.close();
    ASSERT_TRUE(QFile::link(real.fileName(), path("setting.json")));
    run([](cfg::Config& linked) { EXPECT_EQ(str(linked.setting.chipName), "linked"); });
    EXPECT_TRUE(QFileInfo(path("setting.json")).isSymLink());
    EXPECT_GT(QFileInfo(real.fileName()).size(), 60);
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
        QFile file(directory + "/" + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const auto text = file.readAll();
        EXPECT_TRUE(QJsonDocument::fromJson(text).isObject()) << text.constData();
        EXPECT_EQ(text.contains("At Exit"), std::string(name) == "setting.json");
    }
    QDir(directory).removeRecursively();
}
