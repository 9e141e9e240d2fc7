#include "platform/Download.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "support/HttpServer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvanta {
namespace {

std::string Handle(const std::string& path) {
  if (path == "/good") return HttpServer::Answer("200 OK", "", std::string("EURUSD,1.1\n\0x", 13));
  if (path == "/moved") return HttpServer::Answer("302 Found", "Location: /good\r\n", "elsewhere");
  if (path == "/loop") return HttpServer::Answer("302 Found", "Location: /loop\r\n", "");
  if (path == "/local") {
    return HttpServer::Answer("302 Found", "Location: file:///etc/hostname\r\n", "");
  }
  if (path == "/cut") return "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this";
  if (path == "/silent") return HttpServer::Silence();
  if (path == "/large") return HttpServer::Answer("200 OK", "", std::string((16U << 20U) + 1, 'x'));
  if (path == "/endless") {
    return "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + std::string((16U << 20U) + 1, 'x');
  }
  return HttpServer::Answer("404 Not Found", "", "nothing here");
}

TEST(CurlDownload, WritesWhatTheServerAnswers) {
  const TemporaryFolder folder;
  const HttpServer server(Handle);
  const std::string path = folder.Write("quotes.csv", "former, longer answer");
  CurlDownload download;
  download.ToFile(server.Url("/good"), path, {});
  EXPECT_EQ(ReadFile(path), std::string("EURUSD,1.1\n\0x", 13));
  download.ToFile(server.Url("/moved"), path, {});
  EXPECT_EQ(ReadFile(path), std::string("EURUSD,1.1\n\0x", 13));
}

TEST(CurlDownload, FailuresLeaveNoFile) {
  const TemporaryFolder folder;
  const HttpServer server(Handle);
  CurlDownload download;
  for (const char* page : {"/none", "/loop", "/local", "/cut", "/large", "/endless"}) {
    const std::string path = folder.Write("quotes.csv", "former answer");
    try {
      download.ToFile(server.Url(page), path, {});
      ADD_FAILURE() << page;
    } catch (const DownloadError& error) {
      EXPECT_EQ(error.Why(), DownloadError::Cause::Refused) << page;
      EXPECT_EQ(error.Reason().find("http:"), std::string::npos) << "the address may hold a key";
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << page;
  }
  for (const char* url : {"file:///etc/hostname", "ftp://127.0.0.1/x", "no address", "",
                          "http://127.0.0.1:1/closed"}) {
    EXPECT_THROW(download.ToFile(url, folder.Path("quotes.csv"), {}), PlatformError) << url;
  }
  EXPECT_THROW(download.ToFile(server.Url("/good"), folder.Path("no/folder"), {}), PlatformError);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(CurlDownload, GivesUpOnASilentServer) {
  const TemporaryFolder folder;
  const HttpServer server(Handle);
  // The server waits for the client: without a limit of its own this call would never end.
  try {
    CurlDownload(1).ToFile(server.Url("/silent"), folder.Path("x"), {});
    ADD_FAILURE();
  } catch (const DownloadError& error) {
    EXPECT_EQ(error.Why(), DownloadError::Cause::NoAnswer);
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(CurlDownload, EndsWhenItIsNotWaitedForAnyLonger) {
  const TemporaryFolder folder;
  const HttpServer server(Handle);
  int asked = 0;
  // Its own limit is far off: only being stopped ends this call.
  CurlDownload patient(100000);
  try {
    patient.ToFile(server.Url("/silent"), folder.Path("x"), [&] { return ++asked < 3; });
    ADD_FAILURE();
  } catch (const DownloadError& error) {
    EXPECT_EQ(error.Why(), DownloadError::Cause::Stopped);
  }
  EXPECT_EQ(asked, 3);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

}  // namespace
}  // namespace corvanta
