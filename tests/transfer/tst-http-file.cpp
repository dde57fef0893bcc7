#include "tests/support/full-disk.h"
#include "tests/support/scratch.h"
#include "tests/transfer/raw-peer.h"
#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/http/http-client.h"

#include <climits>

namespace fs = std::filesystem;
using t_transfer::http::Client;
using namespace std::chrono_literals;

namespace
{
const std::string okHead = "HTTP/1.1 200 OK\r\n\r\n";
const std::string tenAnnounced = "HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n";

/// The most memory that this process has ever held, in MiB.
long peakMemory()
{
    const auto status = fileText("/proc/self/status");
    return std::stol(status.substr(status.find("VmHWM:") + 6)) / 1024;
}

std::string authorityOf(const std::string& request)
{
    const auto host = request.substr(request.find("Host: ") + 6);
    return host.substr(0, host.find('\r'));
}
} // namespace

class HttpFile : public ScratchTest
{
protected:
    HttpFile() { fs::create_directory(directory); }

    static Client client(const RawPeer& peer)
    {
        auto jConfig = peer.config();
        return Client(jConfig);
    }

    /// Downloads a path of a board with the given behaviour; gives how it ends.
    std::string download(RawPeer::Script fScript, const std::string& path = "dir/new.xml",
                         const t_transfer::Patience& patience = {5s, 5s})
    {
        const RawPeer peer(std::move(fScript));
        const Captured out;
        const Captured err(std::cerr);
        Json::Value jQuery;
        jQuery["path"] = path;
        jQuery["path.local"] = directory.string();
        const auto failure = endOf([&] { client(peer).fileDownload(jQuery, patience); });
        printed = out.get();
        complained = err.get();
        return failure;
    }

    std::string upload(const std::string& path, std::chrono::milliseconds idle = 5s, RawPeer::Script fScript = {})
    {
        std::string request;
        const RawPeer peer(fScript ? fScript : RawPeer::answering(okHead, &request));
        const Captured out;
        const Captured err(std::cerr);
        Json::Value jQuery;
        jQuery["path"] = path;
        client(peer).fileUpload(jQuery, {idle, idle});
        printed = out.get();
        complained = err.get();
        return request;
    }

    fs::path directory = fs::absolute("files");
    std::string printed;
    std::string complained;
};

TEST_F(HttpFile, DownloadStoresTheBodyAndALineFeed)
{
    std::string request;
    EXPECT_EQ(download(RawPeer::answering("HTTP/1.1 404 Not Found\r\n\r\nbody", &request), "dir/a b.xml"), "");
    EXPECT_EQ(fileText(directory / "a b.xml"), "body\n");
    EXPECT_EQ(fileCount(directory), 1u);
    const auto authority = authorityOf(request);
    EXPECT_EQ(request, "GET /dir/a%20b.xml HTTP/1.1\r\nHost: " + authority +
                           "\r\nAccept: */*\r\nAccept-Encoding: identity;q=1.0, *;q=0\r\nConnection: Close\r\n\r\n");
    EXPECT_EQ(printed, "http://" + authority + "/dir/a b.xml\nSaving to: " + directory.string() + "/a b.xml\n");
}

TEST_F(HttpFile, DownloadWithoutALocalDirectoryGoesToTheCurrentOne)
{
    const RawPeer peer(RawPeer::answering(okHead));
    const Captured out;
    Json::Value jQuery;
    jQuery["path"] = "dir/";
    client(peer).fileDownload(jQuery);
    EXPECT_EQ(fileText("index.html"), "\n");
}

TEST_F(HttpFile, NameOfAUrl)
{
    for (const auto& [pUrl, pName] : std::initializer_list<std::pair<const char*, const char*>>{
             {"http://host:80/a/b.xml", "b.xml"},
             {"http://host:80/a/", "index.html"},
             {"http://host:80/", "index.html"},
             {"http://host", "index.html"},
             {"http://host:80/a/b?path=c/d#e/f", "b"},
             {"http://host?a/b", "index.html"},
         })
    {
        EXPECT_EQ(Client::filenameGetFromUrl(pUrl), pName) << pUrl;
    }
}

TEST_F(HttpFile, HostileNamesAreRefusedBeforeAnythingIsSent)
{
    bool isAsked = false;
    EXPECT_NE(download([&](PeerConnection&) { isAsked = true; }, "a/.."), "");
    EXPECT_FALSE(isAsked);
    EXPECT_EQ(fileCount(directory), 0u);
    EXPECT_EQ(download(RawPeer::answering(okHead + "body"), "../../x.xml"), "");
    EXPECT_EQ(fileText(directory / "x.xml"), "body\n");
}

TEST_F(HttpFile, FailedDownloadLeavesTheOldFileOrAnEmptyOne)
{
    fileStore(directory / "old.xml", "old");
    const auto longBody = "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(t_common::limit::httpFile + 1);
    for (const auto& bytes :
         {tenAnnounced + "part", std::string(),
          std::string("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\npart\r\n"), longBody + "\r\n\r\npart"})
    {
        for (const auto* pName : {"old.xml", "new.xml"})
        {
            const auto failure = download(RawPeer::answering(bytes), pName);
            EXPECT_TRUE(contains(failure, "failed")) << failure;
        }
        EXPECT_EQ(fileText(directory / "old.xml"), "old");
        EXPECT_TRUE(fs::exists(directory / "new.xml"));
        EXPECT_EQ(fileText(directory / "new.xml"), "");
        EXPECT_EQ(fileCount(directory), 2u);
    }
}

TEST_F(HttpFile, DownloadReplacesTheFileBehindALinkAndKeepsItsPermissions)
{
    fileStore(directory / "real.xml", "old");
    fs::permissions(directory / "real.xml", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.xml", directory / "link.xml");
    EXPECT_EQ(download(RawPeer::answering(okHead + "new"), "link.xml"), "");
    EXPECT_TRUE(fs::is_symlink(directory / "link.xml"));
    EXPECT_EQ(fileText(directory / "real.xml"), "new\n");
    EXPECT_EQ(fs::status(directory / "real.xml").permissions(), fs::perms::owner_read | fs::perms::owner_write);

    const auto fRemoving = [&](PeerConnection& connection)
    {
        fs::remove(directory / "real.xml");
        RawPeer::answering(okHead + "newer")(connection);
    };
    EXPECT_EQ(download(fRemoving, "real.xml"), "");
    EXPECT_EQ(fileText(directory / "real.xml"), "newer\n");
    EXPECT_EQ(fs::status(directory / "real.xml").permissions() & ~fs::perms(0666), fs::perms::none)
        << "nothing to copy them from";
}

TEST_F(HttpFile, DownloadThatCantBeStoredIsToldOnStandardError)
{
    bool isAsked = false;
    const auto fScript = [&](PeerConnection& connection)
    {
        isAsked = true;
        RawPeer::answering(okHead + "body")(connection);
    };
    fs::create_directory(directory / "taken.xml");
    EXPECT_EQ(download(fScript, "taken.xml"), "");
    EXPECT_TRUE(isAsked);
    EXPECT_TRUE(contains(complained, "taken.xml\" failed")) << complained;
    EXPECT_EQ(fileCount(directory), 1u);
}

TEST_F(HttpFile, FileBesideWhichNoTemporaryFitsIsAFailure)
{
    // The longest path that still holds a short name.
    const auto base = directory;
    constexpr std::size_t length = PATH_MAX - 8;
    while (length - directory.string().size() > 200)
        directory /= std::string(100, 'd');
    directory /= std::string(length - directory.string().size() - 1, 'd');
    fs::create_directories(directory);
    fileStore(directory / "old", "old");
    bool isAsked = false;
    const auto failure = download([&](PeerConnection&) { isAsked = true; }, "old");
    EXPECT_TRUE(contains(failure, "old\" failed: File name too long")) << failure;
    EXPECT_FALSE(isAsked);
    EXPECT_EQ(fileText(directory / "old"), "old");
    directory = base;
}

TEST_F(HttpFile, FullDiskIsAFailureAndKeepsTheOldFile)
{
    fileStore(directory / "old.xml", "old");
    for (const std::size_t size : {2 << 20, (1 << 20) + 1, 1 << 20})
    {
        const auto fScript = RawPeer::answering(okHead + std::string(size, 'x'));
        const FullDisk disk(1 << 20);
        EXPECT_TRUE(contains(download(fScript, "old.xml"), "old.xml\" failed: File too large")) << size;
        EXPECT_EQ(fileText(directory / "old.xml"), "old");
        EXPECT_EQ(fileCount(directory), 1u);
    }
}

TEST_F(HttpFile, SilenceEndsATransferButSlownessDoesNot)
{
    const auto fHalting = [](std::chrono::milliseconds before, std::chrono::milliseconds within)
    {
        return [=](PeerConnection& connection)
        {
            connection.request();
            std::this_thread::sleep_for(before);
            connection.send(tenAnnounced + "01234");
            std::this_thread::sleep_for(within);
            connection.send("56789");
        };
    };
    const struct
    {
        const char* pName;
        t_transfer::Patience patience;
        RawPeer::Script fScript;
        const char* pFailure;
    } cases[] = {
        {"silent", {150ms, 20s}, [](PeerConnection& c) { c.silence(); }, "no answer: "},
        {"begun", {20s, 150ms}, [](PeerConnection& c) { c.request(), c.send(okHead), c.silence(); }, "no answer: "},
        {"late", {20s, 150ms}, fHalting(400ms, 0ms), ""},
        {"halting", {1s, 20s}, fHalting(0ms, 1300ms), ""},
        {"slow", {200ms, 200ms}, [](PeerConnection& c) { c.request(), c.drip(tenAnnounced + "0123456789", 10ms); }, ""},
        {"user's", {}, fHalting(2300ms, 0ms), ""},
    };
    for (const auto& c : cases)
    {
        const Stopwatch stopwatch;
        const auto failure = download(c.fScript, c.pName, c.patience);
        EXPECT_EQ(failure.substr(0, 11), c.pFailure) << c.pName << ": " << failure;
        EXPECT_TRUE(failure.empty() || contains(failure, "failed: nothing has moved")) << failure;
        EXPECT_EQ(fileText(directory / c.pName), failure.empty() ? "0123456789\n" : "");
        EXPECT_LT(stopwatch.seconds(), 10) << c.pName;
    }
}

TEST_F(HttpFile, FailureOfAnUploadIsToldOnStandardError)
{
    // A board that takes nothing in, one that gives no answer, and one that breaks off.
    fileStore("large", std::string(16 << 20, 'x'));
    upload("large", 200ms, [](PeerConnection&) { std::this_thread::sleep_for(1s); });
    EXPECT_TRUE(contains(complained, "nothing has moved")) << complained;
    fileStore("small", "x");
    upload("small", 200ms, [](PeerConnection& connection) { connection.silence(); });
    EXPECT_TRUE(contains(complained, "nothing has moved")) << complained;
    upload("large", 5s, [](PeerConnection& connection) { connection.reset(); });
    EXPECT_TRUE(contains(complained, "failed")) << complained;
}

TEST_F(HttpFile, BytesOfAnUpload)
{
    const std::string content("\0\r\n\xff", 4);
    fileStore(directory / "a b\xc3\xa4.bin", content);
    const auto request = upload((directory / "a b\xc3\xa4.bin").string());
    const auto authority = authorityOf(request);
    EXPECT_EQ(request, "POST /upload?path=&filename=a%20b%C3%A4.bin HTTP/1.1\r\nContent-Length: 4\r\n"
                       "Content-Type: x-application/octet-stream\r\nHost: " +
                           authority +
                           "\r\nAccept: */*\r\nAccept-Encoding: identity;q=1.0, *;q=0\r\nConnection: Close\r\n\r\n" +
                           content);
    EXPECT_EQ(printed, "http://" + authority + "/upload?path=&filename=a b\xc3\xa4.bin\nLoading from: " +
                           (directory / "a b\xc3\xa4.bin").string() + "\n");
}

TEST_F(HttpFile, UploadOfNothingHasNoLength)
{
    fileStore(directory / "empty", "");
    fs::create_directory(directory / "folder");
    for (const auto* pName : {"empty", "missing", "folder"})
    {
        const auto request = upload((directory / pName).string());
        EXPECT_EQ(request.rfind("POST /upload?path=&filename=" + std::string(pName) +
                                    " HTTP/1.1\r\nContent-Type: x-application/octet-stream\r\nHost: ",
                                0),
                  0u)
            << request;
        EXPECT_EQ(request.substr(request.size() - 4), "\r\n\r\n");
        EXPECT_EQ(complained.empty(), pName == std::string("empty")) << complained;
    }
}

TEST_F(HttpFile, MemoryDoesNotGrowWithTheFile)
{
    constexpr std::size_t size = 96 << 20;
    const auto before = peakMemory();
    EXPECT_EQ(download(
                  [](PeerConnection& connection)
                  {
                      connection.request();
                      connection.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n");
                      const std::string piece(1 << 16, 'x');
                      for (std::size_t i = 0; i < size / piece.size(); ++i)
                          connection.send(piece);
                  },
                  "large"),
              "");
    EXPECT_EQ(fs::file_size(directory / "large"), size + 1);
    std::size_t received = 0;
    upload((directory / "large").string(), 5s, [&](PeerConnection& connection) { received = connection.drain(size); });
    EXPECT_GE(received, size);
    EXPECT_LT(peakMemory() - before, 32);
}
