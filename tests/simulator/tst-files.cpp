#include "tests/simulator/fixture.h"

namespace
{

class FilesTest : public BoardTest
{
protected:
    FilesTest()
    {
        std::ofstream(base / "secret") << "hidden words";
        std::ofstream(base / "files" / "inside.xml") << "inside";
        std::filesystem::create_directory(base / "files" / "folder");
        std::filesystem::create_symlink(base / "secret", base / "files" / "link.xml");
    }

    /// What lies outside is as it was, and no link or folder has been touched.
    bool isOutsideUnharmed()
    {
        return fileText(base / "secret") == "hidden words" &&
               std::distance(std::filesystem::directory_iterator(base), {}) == 2 &&
               std::filesystem::is_directory(base / "files" / "folder");
    }
};

const std::vector<std::string> hostileNames{"",
                                            ".",
                                            "..",
                                            "../secret",
                                            "folder",
                                            "folder/../../secret",
                                            "/etc/passwd",
                                            ".hidden",
                                            "a\nb",
                                            std::string("inside.xml\0.x", 13),
                                            std::string(256, 'n')};

} // namespace

TEST_F(FilesTest, NothingOutsideIsServed)
{
    for (const char* target : {"/../secret", "/%2e%2e/secret", "/..%2fsecret", "//etc/passwd", "/folder", "/",
                               "/link.xml", "/inside.xml%00", "/files/../inside.xml", "/gone.xml"})
    {
        const std::string response = exchange(std::string("GET ") + target + " HTTP/1.1\r\n\r\n");
        EXPECT_EQ(response.find("HTTP/1.1 404 "), 0u) << target;
        EXPECT_EQ(response.find("hidden words"), std::string::npos) << target;
    }
    EXPECT_EQ(bodyOf(exchange("GET /inside%2Exml HTTP/1.1\r\n\r\n")), "inside");
}

TEST_F(FilesTest, NothingOutsideIsWrittenOrRemoved)
{
    for (const std::string& name : hostileNames)
    {
        SCOPED_TRACE(name);
        std::string encoded;
        for (char c : name)
        {
            char text[4];
            std::snprintf(text, sizeof text, "%%%02x", static_cast<unsigned char>(c));
            encoded += text;
        }
        EXPECT_EQ(exchange(post("bytes", "/upload?path=&filename=" + encoded)).find("HTTP/1.1 400 "), 0u);
        const std::vector<std::pair<Json::Value, const char*>> commands{
            {query("FileSystem", "remove"), "path"},
            {query("Image", "load"), "file.name"},
            {query("Sensor", "registerDump2File"), "file.name"},
            {query("Camera", "calibrationSet"), "calib.file"}};
        for (const auto& [command, key] : commands)
        {
            Json::Value jQuery = command;
            jQuery[key] = name;
            jQuery["is.lsb"] = false;
            jQuery["block.signal"] = false;
            EXPECT_NE(simulator->execute(jQuery)["error"], 0) << key;
        }
        EXPECT_TRUE(isOutsideUnharmed());
    }
    // An upload takes the place of a link and leaves alone what the link means.
    exchange(post("bytes", "/upload?path=&filename=link.xml"));
    EXPECT_EQ(fileText(base / "files" / "link.xml"), "bytes");
    EXPECT_TRUE(isOutsideUnharmed());

    Json::Value list = query("FileSystem", "list");
    list["file.extension"] = "";
    for (const char* path : {"..", "/", "folder", "./.."})
    {
        list["path"] = path;
        EXPECT_NE(simulator->execute(list)["error"], 0) << path;
    }
}

TEST_F(FilesTest, FileComesBackAsItWent)
{
    std::string bytes(5'000'000, '\0');
    for (size_t i = 0; i < bytes.size(); ++i)
    {
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    }
    // The name is the last parameter and stands as it is, but for blanks and bytes beyond ASCII.
    const std::string encoded = "100%&a=b%20%C3%A4.xml";
    const std::string name = "100%&a=b \xC3\xA4.xml";
    EXPECT_EQ(bodyOf(exchange(post(bytes, "/upload?path=&filename=" + encoded))), "{\"error\":0}");
    EXPECT_TRUE(bodyOf(exchange("GET /" + encoded + " HTTP/1.1\r\n\r\n")) == bytes);
    EXPECT_EQ(simulator->requests().front().bodySize, bytes.size());
    EXPECT_EQ(simulator->count(board::Fault::Upload), 1u);

    exchange("POST /upload?path=&filename=empty.xml HTTP/1.1\r\n\r\n");
    Json::Value list = query("FileSystem", "list");
    list["file.extension"] = "xml";
    list["path"] = ".";
    const Json::Value names = simulator->execute(list)["file.list"];
    ASSERT_EQ(names.size(), 3u) << names;
    EXPECT_EQ(names[0], name);
    EXPECT_EQ(names[1], "empty.xml");

    Json::Value remove = query("FileSystem", "remove");
    remove["path"] = name;
    EXPECT_EQ(simulator->execute(remove)["error"], 0);
    EXPECT_EQ(exchange("GET /" + encoded + " HTTP/1.1\r\n\r\n").find("HTTP/1.1 404 "), 0u);
}

TEST_F(FilesTest, BrokenUploadLeavesTheOldFile)
{
    {
        RawConnection connection(simulator->port());
        connection.send("POST /upload?path=&filename=inside.xml HTTP/1.1\r\nContent-Length: 1000\r\n\r\npart");
    }
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (simulator->count(board::Fault::Upload) == 0 && std::chrono::steady_clock::now() < limit)
    {
        usleep(1000);
    }
    EXPECT_EQ(simulator->requests().back().body, "part");
    EXPECT_EQ(fileText(base / "files" / "inside.xml"), "inside");
    simulator.reset();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(base / "files"), {}), 3);
}

TEST_F(FilesTest, PictureTellsItsSizeAndDepth)
{
    const board::Record& record = board::Wire::instance().record("PicBufMetaData_s");
    const std::vector<std::pair<std::string, char>> pictures{{"P5\n# made by hand\n640 480\n255\n", '\x10'},
                                                             {"P5 640 480 1023\n", '\x12'},
                                                             {"P5 640 480 4095\n", '\x13'},
                                                             {"P5 640 480 65535\n", '\x11'}};
    for (const auto& [head, type] : pictures)
    {
        std::ofstream(base / "files" / "picture.pgm") << head << "pixels";
        Json::Value jQuery = query("Image", "load");
        jQuery["file.name"] = "picture.pgm";
        jQuery["is.lsb"] = true;
        const auto bytes = board::base64Decode(simulator->execute(jQuery)["metadata"].asString());
        ASSERT_TRUE(bytes && bytes->size() == record.size) << head;
        EXPECT_EQ((*bytes)[0], type) << head;
        EXPECT_EQ(bytes->substr(76, 4), std::string("\x80\x02\0\0", 4));
        EXPECT_EQ(bytes->substr(84, 4), std::string("\xE0\x01\0\0", 4));
    }
    for (const char* head :
         {"", "P6 640 480 255\n", "P5 0 480 255\n", "P5 640 -1 255\n", "P5 99999999999 1 255\n", "P5 # 1 1 255"})
    {
        std::ofstream(base / "files" / "picture.pgm") << head;
        Json::Value jQuery = query("Image", "load");
        jQuery["file.name"] = "picture.pgm";
        jQuery["is.lsb"] = true;
        EXPECT_NE(simulator->execute(jQuery)["error"], 0) << head;
    }
}

TEST_F(FilesTest, CalibrationGoesRound)
{
    Json::Value jQuery = query("Camera", "calibrationSet");
    jQuery["block.signal"] = false;
    jQuery["calib.file"] = "inside.xml";
    ASSERT_EQ(simulator->execute(jQuery)["error"], 0);
    jQuery = query("Camera", "calibrationGet");
    jQuery["block.signal"] = false;
    jQuery["time"] = "2022-11-16_09-18-29";
    const std::string name = simulator->execute(jQuery)["calib.file"].asString();
    EXPECT_EQ(bodyOf(exchange("GET /" + name + " HTTP/1.1\r\n\r\n")), "inside");
}
