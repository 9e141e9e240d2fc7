#include "platform/Download.h"

#include "platform/Files.h"

#include <curl/curl.h>

#include <algorithm>
#include <memory>
#include <new>

namespace corvanta::inline platform {
namespace {

constexpr long kConnectSeconds = 4;
constexpr long kMaxRedirects = 10;
constexpr std::size_t kLargestAnswer = 16U << 20U;
constexpr int kWatchEvery = 50;  // milliseconds

struct Answer {
  std::string bytes;
  bool isTooLarge = false;
};

// Called by curl with each piece; taking less than it offers ends the transfer.
std::size_t Receive(const char* piece, std::size_t size, std::size_t count, void* target) {
  auto& answer = *static_cast<Answer*>(target);
  const std::size_t length = size * count;
  if (answer.bytes.size() + length > kLargestAnswer) {
    answer.isTooLarge = true;
    return 0;
  }
  answer.bytes.append(piece, length);
  return length;
}

using CurlHandle = std::unique_ptr<CURL, decltype(&curl_easy_cleanup)>;

void SetOptions(CURL* curl, const std::string& url, long timeoutSeconds, Answer& answer) {
  curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
#if LIBCURL_VERSION_NUM >= 0x075500
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
#else
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS, long{CURLPROTO_HTTP | CURLPROTO_HTTPS});
  curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS, long{CURLPROTO_HTTP | CURLPROTO_HTTPS});
#endif
  curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
  curl_easy_setopt(curl, CURLOPT_MAXREDIRS, kMaxRedirects);
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, std::min(kConnectSeconds, timeoutSeconds));
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, timeoutSeconds);
  curl_easy_setopt(curl, CURLOPT_MAXFILESIZE, static_cast<long>(kLargestAnswer));
  curl_easy_setopt(curl, CURLOPT_FAILONERROR, 1L);
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "");
  curl_easy_setopt(curl, CURLOPT_USERAGENT, "Mozilla/5.0 (compatible; Corvanta)");
  curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, Receive);
  curl_easy_setopt(curl, CURLOPT_WRITEDATA, &answer);
}

std::string ReasonOf(CURL* curl, CURLcode code, const Answer& answer) {
  if (answer.isTooLarge || code == CURLE_FILESIZE_EXCEEDED) return "the answer is too large";
  if (code == CURLE_OPERATION_TIMEDOUT) return "the server did not answer in time";
  if (code == CURLE_PARTIAL_FILE) return "the answer was cut off";
  long status = 0;
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
  if (code == CURLE_HTTP_RETURNED_ERROR) return "the server answered " + std::to_string(status);
  return curl_easy_strerror(code);
}

DownloadError::Cause CauseOf(CURLcode code) {
  switch (code) {
    case CURLE_COULDNT_RESOLVE_PROXY:
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT:
    case CURLE_OPERATION_TIMEDOUT:
      return DownloadError::Cause::NoAnswer;
    default:
      return DownloadError::Cause::Refused;
  }
}

// Several transfers could run in it; one does, so that whoever waits can be heard meanwhile.
class WatchedTransfer {
 public:
  explicit WatchedTransfer(CURL* transfer) : group_(curl_multi_init()), transfer_(transfer) {
    if (group_ == nullptr) throw std::bad_alloc();
    curl_multi_add_handle(group_, transfer_);
  }
  ~WatchedTransfer() {
    curl_multi_remove_handle(group_, transfer_);
    curl_multi_cleanup(group_);
  }
  WatchedTransfer(const WatchedTransfer&) = delete;
  WatchedTransfer& operator=(const WatchedTransfer&) = delete;

  // CURLE_ABORTED_BY_CALLBACK when it was not waited for to the end.
  CURLcode Run(const Download::GoesOn& goesOn) {
    int running = 1;
    while (curl_multi_perform(group_, &running) == CURLM_OK && running > 0) {
      if (goesOn && !goesOn()) return CURLE_ABORTED_BY_CALLBACK;
      curl_multi_poll(group_, nullptr, 0, kWatchEvery, nullptr);
    }
    int waiting = 0;
    const CURLMsg* message = curl_multi_info_read(group_, &waiting);
    return message == nullptr ? CURLE_FAILED_INIT : message->data.result;
  }

 private:
  CURLM* group_;
  CURL* transfer_;
};

}  // namespace

DownloadError::DownloadError(Cause cause, const std::string& url, const std::string& reason)
    : PlatformError("Cannot download " + url + ": " + reason +
                    ". Nothing was changed. Check the connection and try again later."),
      cause_(cause),
      reason_(reason) {}

void CurlDownload::ToFile(const std::string& url, const std::string& path, const GoesOn& goesOn) {
  SystemFiles files;
  // An old answer must not be taken for the new one when this fails.
  files.Remove(path);
  const CurlHandle curl(curl_easy_init(), &curl_easy_cleanup);
  if (curl == nullptr) throw std::bad_alloc();
  Answer answer;
  SetOptions(curl.get(), url, timeoutSeconds_, answer);
  const CURLcode code = WatchedTransfer(curl.get()).Run(goesOn);
  if (code == CURLE_ABORTED_BY_CALLBACK) {
    throw DownloadError(DownloadError::Cause::Stopped, url, "it was stopped");
  }
  if (code != CURLE_OK) {
    throw DownloadError(CauseOf(code), url, ReasonOf(curl.get(), code, answer));
  }
  files.WriteAtomically(path, answer.bytes);
}

}  // namespace corvanta::inline platform
