#include "tests/transfer/captured.h"
#include "tests/transfer/raw-peer.h"
#include "tuning-common/source/limits.h"
#include "tuning-transfer/source/http/http-client.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

#include <climits>
#include <csignal>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;
using t_transfer::http::Client;
using namespace std::chrono_literals;

namespace
{
std::string contentOf(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void store(const fs::path& path, const std::string& content) { std::ofstream(path, std::ios::binary) << content; }

/// The most memory that this process has ever held, in MiB.
long peakMemory()
{
    std::ifstream stream("/proc/self/status");
    for (std::string line; std::getline(stream, line);)
    {
        if (line.rfind("VmHWM:", 0) == 0)
        {
            return std::stol(line.substr(6)) / 1024;
        }
    }
    return 0;
}
} // namespace

class HttpFile : public testing::Test
{
protected:
    HttpFile()
    {
        auto pattern = (fs::temp_directory_path() / "http-file-XXXXXX").string();
        directory = mkdtemp(pattern.data());
    }

    ~HttpFile() override { fs::remove_all(directory); }

    static Client client(const RawPeer& peer)
    {
        Json::Value jConfig;
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = peer.port;
        return Client(jConfig);
    }

    /// Downloads a path of a board with the given behaviour; gives the text of the failure.
    std::string download(std::function<void(RawConnection&)> fScript, const std::string& path = "dir/new.xml",
                         std::chrono::milliseconds idle = 5s)
    {
        const RawPeer peer(std::move(fScript));
        const Captured out;
        const Captured err(std::cerr);
        Json::Value jQuery;
        jQuery["path"] = path;
        jQuery["path.local"] = directory.string();
        std::string failure;
        try
        {
            client(peer).fileDownload(jQuery, {idle, idle});
        }
        catch (const std::exception& exception)
        {
            failure = exception.what();
        }
        printed = out.get();
        complained = err.get();
        return failure;
    }

    std::string upload(const std::string& path, std::chrono::milliseconds idle = 5s,
                       std::function<void(RawConnection&)> fScript = {})
    {
        std::string request;
        const RawPeer peer(fScript ? fScript : RawPeer::answering("HTTP/1.1 200 OK\r\n\r\n", &request));
        const Captured out;
        const Captured err(std::cerr);
        Json::Value jQuery;
        jQuery["path"] = path;
        client(peer).fileUpload(jQuery, {idle, idle});
        printed = out.get();
        complained = err.get();
        return request;
    }

    std::size_t fileCount() const { return std::distance(fs::directory_iterator(directory), {}); }

    fs::path directory;
    std::string printed;
    std::string complained;
};

TEST_F(HttpFile, DownloadStoresTheBodyAndALineFeed)
{
    std::string request;
    EXPECT_EQ(download(RawPeer::answering("HTTP/1.1 404 Not Found\r\n\r\nbody", &request), "dir/a b.xml"), "");
    EXPECT_EQ(contentOf(directory / "a b.xml"), "body\n");
    EXPECT_EQ(fileCount(), 1u);
    const auto host = request.substr(request.find("Host: ") + 6);
    const auto authority = host.substr(0, host.find('\r'));
    EXPECT_EQ(request, "GET /dir/a%20b.xml HTTP/1.1\r\nHost: " + authority +
                           "\r\nAccept: */*\r\nAccept-Encoding: identity;q=1.0, *;q=0\r\nConnection: Close\r\n\r\n");
    EXPECT_EQ(printed, "http://" + authority + "/dir/a b.xml\nSaving to: " + directory.string() + "/a b.xml\n");
}

TEST_F(HttpFile, DownloadWithoutALocalDirectoryGoesToTheCurrentOne)
{
    const auto before = fs::current_path();
    fs::current_path(directory);
    const RawPeer peer(RawPeer::answering("HTTP/1.1 200 OK\r\n\r\n"));
    const Captured out;
    Json::Value jQuery;
    jQuery["path"] = "dir/";
    client(peer).fileDownload(jQuery);
    fs::current_path(before);
    EXPECT_EQ(contentOf(directory / "index.html"), "\n");
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
    for (const auto* pPath : {"..", "a/..", "..\\a", "a\nb", "."})
    {
        EXPECT_NE(download([&](RawConnection&) { isAsked = true; }, pPath), "") << pPath;
    }
    EXPECT_FALSE(isAsked);
    EXPECT_EQ(fileCount(), 0u);
    EXPECT_EQ(download(RawPeer::answering("HTTP/1.1 200 OK\r\n\r\nbody"), "../../x.xml"), "");
    EXPECT_EQ(contentOf(directory / "x.xml"), "body\n");
}

TEST_F(HttpFile, FailedDownloadLeavesTheOldFileOrAnEmptyOne)
{
    store(directory / "old.xml", "old");
    const auto longBody = "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(t_common::limit::httpFile + 1);
    for (const auto& bytes :
         {std::string("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\npart"), std::string(),
          std::string("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n4\r\npart\r\n"), longBody + "\r\n\r\npart"})
    {
        for (const auto* pName : {"old.xml", "new.xml"})
        {
            const auto failure = download(RawPeer::answering(bytes), pName);
            EXPECT_NE(failure.find("failed"), std::string::npos) << failure;
        }
        EXPECT_EQ(contentOf(directory / "old.xml"), "old");
        EXPECT_TRUE(fs::exists(directory / "new.xml"));
        EXPECT_EQ(contentOf(directory / "new.xml"), "");
        EXPECT_EQ(fileCount(), 2u);
    }
}

TEST_F(HttpFile, DownloadReplacesTheFileBehindALinkAndKeepsItsPermissions)
{
    store(directory / "real.xml", "old");
    fs::permissions(directory / "real.xml", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.xml", directory / "link.xml");
    EXPECT_EQ(download(RawPeer::answering("HTTP/1.1 200 OK\r\n\r\nnew"), "link.xml"), "");
    EXPECT_TRUE(fs::is_symlink(directory / "link.xml"));
    EXPECT_EQ(contentOf(directory / "real.xml"), "new\n");
    EXPECT_EQ(fs::status(directory / "real.xml").permissions(), fs::perms::owner_read | fs::perms::owner_write);

    const auto fRemoving = [&](RawConnection& connection)
    {
        fs::remove(directory / "real.xml");
        RawPeer::answering("HTTP/1.1 200 OK\r\n\r\nnewer")(connection);
    };
    EXPECT_EQ(download(fRemoving, "real.xml"), "");
    EXPECT_EQ(contentOf(directory / "real.xml"), "newer\n");
    EXPECT_EQ(fs::status(directory / "real.xml").permissions() & ~fs::perms(0666), fs::perms::none)
        << "nothing to copy them from";
}

TEST_F(HttpFile, DownloadThatCantBeStoredIsToldOnStandardError)
{
    bool isAsked = false;
    const auto fScript = [&](RawConnection& connection)
    {
        isAsked = true;
        RawPeer::answering("HTTP/1.1 200 OK\r\n\r\nbody")(connection);
    };
    fs::create_directory(directory / "taken.xml");
    EXPECT_EQ(download(fScript, "taken.xml"), "");
    EXPECT_TRUE(isAsked);
    EXPECT_NE(complained.find("taken.xml\" failed"), std::string::npos) << complained;
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(HttpFile, FileBesideWhichNoTemporaryFitsIsAFailure)
{
    // The longest path that still holds a short name.
    const auto base = directory;
    constexpr std::size_t length = PATH_MAX - 8;
    while (length - directory.string().size() > 200)
    {
        directory /= std::string(100, 'd');
    }
    directory /= std::string(length - directory.string().size() - 1, 'd');
    fs::create_directories(directory);
    store(directory / "old", "old");
    bool isAsked = false;
    const auto failure = download([&](RawConnection&) { isAsked = true; }, "old");
    EXPECT_NE(failure.find("old\" failed: File name too long"), std::string::npos) << failure;
    EXPECT_FALSE(isAsked);
    EXPECT_EQ(contentOf(directory / "old"), "old");
    directory = base;
}

TEST_F(HttpFile, FullDiskIsAFailureAndKeepsTheOldFile)
{
    store(directory / "old.xml", "old");
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit small = old;
    small.rlim_cur = 1 << 20;
    std::signal(SIGXFSZ, SIG_IGN);
    for (const std::size_t size : {2 << 20, (1 << 20) + 1, 1 << 20})
    {
        setrlimit(RLIMIT_FSIZE, &small);
        const auto failure =
            download(RawPeer::answering("HTTP/1.1 200 OK\r\n\r\n" + std::string(size, 'x')), "old.xml");
        setrlimit(RLIMIT_FSIZE, &old);
        EXPECT_NE(failure.find("old.xml\" failed: File too large"), std::string::npos) << size << failure;
        EXPECT_EQ(contentOf(directory / "old.xml"), "old");
        EXPECT_EQ(fileCount(), 1u);
    }
}

TEST_F(HttpFile, SilenceEndsATransferButSlownessDoesNot)
{
    const auto fSilent = [](RawConnection& connection)
    {
        connection.request();
        connection.send("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\npart");
        connection.silence();
    };
    EXPECT_NE(download(fSilent, "new.xml", 200ms).find("failed: nothing has moved"), std::string::npos);
    const auto fSlow = [](RawConnection& connection)
    {
        connection.request();
        connection.drip("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n0123456789", 10ms);
    };
    EXPECT_EQ(download(fSlow, "new.xml", 200ms), "");
    EXPECT_EQ(contentOf(directory / "new.xml"), "0123456789\n");

    // A board that takes nothing in, and one that gives no answer.
    store(directory / "large", std::string(16 << 20, 'x'));
    upload((directory / "large").string(), 200ms, [](RawConnection&) { std::this_thread::sleep_for(1s); });
    EXPECT_NE(complained.find("nothing has moved"), std::string::npos) << complained;
    store(directory / "small", "x");
    upload((directory / "small").string(), 200ms, [](RawConnection& connection) { connection.silence(); });
    EXPECT_NE(complained.find("nothing has moved"), std::string::npos) << complained;
}

TEST_F(HttpFile, BytesOfAnUpload)
{
    const std::string content("\0\r\n\xff", 4);
    store(directory / "a b\xc3\xa4.bin", content);
    const auto request = upload((directory / "a b\xc3\xa4.bin").string());
    const auto host = request.substr(request.find("Host: ") + 6);
    const auto authority = host.substr(0, host.find('\r'));
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
    store(directory / "empty", "");
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

TEST_F(HttpFile, UploadNeverThrowsForTheConnection)
{
    store(directory / "large", std::string(16 << 20, 'x'));
    upload((directory / "large").string(), 5s, [](RawConnection& connection) { connection.reset(); });
    EXPECT_NE(complained.find("failed"), std::string::npos) << complained;
}

TEST_F(HttpFile, MemoryDoesNotGrowWithTheFile)
{
    constexpr std::size_t size = 96 << 20;
    const auto before = peakMemory();
    EXPECT_EQ(download(
                  [](RawConnection& connection)
                  {
                      connection.request();
                      connection.send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(size) + "\r\n\r\n");
                      const std::string piece(1 << 16, 'x');
                      for (std::size_t i = 0; i < size / piece.size(); ++i)
                      {
                          connection.send(piece);
                      }
                  },
                  "large"),
              "");
    EXPECT_EQ(fs::file_size(directory / "large"), size + 1);
    std::size_t received = 0;
    upload((directory / "large").string(), 5s, [&](RawConnection& connection) { received = connection.drain(size); });
    EXPECT_GE(received, size);
    EXPECT_LT(peakMemory() - before, 32);
}
