#include "tests/simulator/fixture.h"

namespace
{

class FilesTest : public BoardTest
{
protected:
    FilesTest()
    {
        fileStore("secret", "hidden words");
        fileStore("files/inside.xml", "inside");
        std::filesystem::create_directory("files/folder");
        std::filesystem::create_symlink("../secret", "files/link.xml");
    }

    /// What lies outside is as it was, and no link or folder has been touched.
    bool isOutsideUnharmed()
    {
        return fileText("secret") == "hidden words" && fileCount(".") == 2 &&
               std::filesystem::is_directory("files/folder");
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
        const std::string response = download(target);
        EXPECT_TRUE(startsWith(response, "HTTP/1.1 404 ")) << target;
        EXPECT_FALSE(contains(response, "hidden words")) << target;
    }
    EXPECT_EQ(bodyOf(download("/inside%2Exml")), "inside");
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
        EXPECT_TRUE(startsWith(exchange(post("bytes", "/upload?path=&filename=" + encoded)), "HTTP/1.1 400 "));
        const std::vector<std::pair<Json::Value, const char*>> commands{
            {query("FileSystem", "remove"), "path"},
            {query("Image", "load", -1, R"({"is.lsb":false})"), "file.name"},
            {query("Sensor", "registerDump2File"), "file.name"},
            {query("Camera", "calibrationSet", -1, R"({"block.signal":false})"), "calib.file"}};
        for (auto [jQuery, key] : commands)
        {
            jQuery[key] = name;
            EXPECT_NE(simulator->execute(jQuery)["error"], 0) << key;
        }
        EXPECT_TRUE(isOutsideUnharmed());
    }
    // An upload takes the place of a link and leaves alone what the link means.
    exchange(post("bytes", "/upload?path=&filename=link.xml"));
    EXPECT_EQ(fileText("files/link.xml"), "bytes");
    EXPECT_TRUE(isOutsideUnharmed());
    for (const std::string path : {"..", "/", "folder", "./.."})
        EXPECT_NE(run("FileSystem", "list", -1, R"({"file.extension":"","path":")" + path + "\"}")["error"], 0) << path;
}

TEST_F(FilesTest, FileComesBackAsItWent)
{
    std::string bytes(5'000'000, '\0');
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    // The name is the last parameter and stands as it is, but for blanks and bytes beyond ASCII.
    const std::string encoded = "100%&a=b%20%C3%A4.xml";
    const std::string name = "100%&a=b \xC3\xA4.xml";
    EXPECT_EQ(bodyOf(exchange(post(bytes, "/upload?path=&filename=" + encoded))), "{\"error\":0}");
    EXPECT_TRUE(bodyOf(download("/" + encoded)) == bytes);
    EXPECT_EQ(simulator->requests().front().bodySize, bytes.size());
    EXPECT_EQ(simulator->count(board::Fault::Upload), 1u);

    exchange("POST /upload?path=&filename=empty.xml HTTP/1.1\r\n\r\n");
    const Json::Value names = run("FileSystem", "list", -1, R"({"file.extension":"xml","path":"."})")["file.list"];
    ASSERT_EQ(names.size(), 3u) << names;
    EXPECT_EQ(names[0], name);
    EXPECT_EQ(names[1], "empty.xml");
    EXPECT_EQ(run("FileSystem", "remove", -1, R"({"path":")" + name + "\"}")["error"], 0);
    EXPECT_TRUE(startsWith(download("/" + encoded), "HTTP/1.1 404 "));
}

TEST_F(FilesTest, BrokenUploadLeavesTheOldFile)
{
    {
        ClientConnection connection(simulator->port());
        connection.send("POST /upload?path=&filename=inside.xml HTTP/1.1\r\nContent-Length: 1000\r\n\r\npart");
    }
    EXPECT_TRUE(await([&] { return simulator->count(board::Fault::Upload) > 0; }));
    EXPECT_EQ(simulator->requests().back().body, "part");
    EXPECT_EQ(fileText("files/inside.xml"), "inside");
    simulator.reset();
    EXPECT_EQ(fileCount("files"), 3u);
}

TEST_F(FilesTest, PictureTellsItsSizeAndDepth)
{
    const board::Record& record = board::Wire::instance().record("PicBufMetaData_s");
    const std::vector<std::pair<std::string, char>> pictures{{"P5\n# made by hand\n640 480\n255\n", '\x10'},
                                                             {"P5 640 480 1023\n", '\x12'},
                                                             {"P5 640 480 4095\n", '\x13'},
                                                             {"P5 640 480 65535\n", '\x11'}};
    const auto load = [&](const std::string& head)
    {
        fileStore("files/picture.pgm", head + "pixels");
        return run("Image", "load", -1, R"({"file.name":"picture.pgm","is.lsb":true})");
    };
    for (const auto& [head, type] : pictures)
    {
        const auto bytes = board::base64Decode(load(head)["metadata"].asString());
        ASSERT_TRUE(bytes && bytes->size() == record.size) << head;
        EXPECT_EQ((*bytes)[0], type) << head;
        EXPECT_EQ(bytes->substr(76, 4), std::string("\x80\x02\0\0", 4));
        EXPECT_EQ(bytes->substr(84, 4), std::string("\xE0\x01\0\0", 4));
    }
    for (const char* head :
         {"", "P6 640 480 255\n", "P5 0 480 255\n", "P5 640 -1 255\n", "P5 99999999999 1 255\n", "P5 # 1 1 255"})
        EXPECT_NE(load(head)["error"], 0) << head;
}

TEST_F(FilesTest, CalibrationGoesRound)
{
    ASSERT_EQ(run("Camera", "calibrationSet", -1, R"({"block.signal":false,"calib.file":"inside.xml"})")["error"], 0);
    const Json::Value answer =
        run("Camera", "calibrationGet", -1, R"({"block.signal":false,"time":"2022-11-16_09-18-29"})");
    EXPECT_EQ(bodyOf(download("/" + answer["calib.file"].asString())), "inside");
}
