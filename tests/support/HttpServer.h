#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

namespace corvanta {

// A web server on the loopback address for one test: it hands each request's path to a function
// and sends back the bytes it returns as they are, then closes the connection.
class HttpServer {
 public:
  using Handler = std::function<std::string(const std::string& path)>;

  explicit HttpServer(Handler handler);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  [[nodiscard]] std::string Url(const std::string& path) const;
  // An answer that never comes: the connection stays open and silent until the client gives up.
  [[nodiscard]] static std::string Silence();
  // A whole answer with its length.
  [[nodiscard]] static std::string Answer(const std::string& status, const std::string& headers,
                                          const std::string& body);

 private:
  void Serve();
  void ServeOne(int connection);
  void WaitForGoodbye(int connection) const;

  Handler handler_;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<bool> stops_ = false;
  std::thread thread_;
};

}  // namespace corvanta
