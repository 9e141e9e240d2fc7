#include "support/HttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace corvanta {

HttpServer::HttpServer(Handler handler) : handler_(std::move(handler)) {
  listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* plain = reinterpret_cast<sockaddr*>(&address);
  if (::bind(listener_, plain, size) != 0 || ::listen(listener_, 8) != 0 ||
      ::getsockname(listener_, plain, &size) != 0) {
    throw std::runtime_error("no loopback server");
  }
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

HttpServer::~HttpServer() {
  stops_ = true;
  thread_.join();
  ::close(listener_);
}

std::string HttpServer::Url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::string HttpServer::Silence() {
  return "silence";
}

std::string HttpServer::Answer(const std::string& status, const std::string& headers,
                               const std::string& body) {
  return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers +
         "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

void HttpServer::Serve() {
  while (!stops_) {
    pollfd waiting{listener_, POLLIN, 0};
    if (::poll(&waiting, 1, 20) <= 0) continue;
    const int connection = ::accept(listener_, nullptr, nullptr);
    if (connection < 0) continue;
    ServeOne(connection);
    ::close(connection);
  }
}

void HttpServer::ServeOne(int connection) {
  std::string request;
  std::array<char, 4096> buffer;
  while (request.find("\r\n\r\n") == std::string::npos) {
    const ssize_t count = ::recv(connection, buffer.data(), buffer.size(), 0);
    if (count <= 0) return;
    request.append(buffer.data(), static_cast<std::size_t>(count));
  }
  const std::size_t start = request.find(' ') + 1;
  const std::string answer = handler_(request.substr(start, request.find(' ', start) - start));
  if (answer == Silence()) {
    WaitForGoodbye(connection);
    return;
  }
  std::size_t sent = 0;
  while (sent < answer.size()) {
    const ssize_t count =
        ::send(connection, answer.data() + sent, answer.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return;
    sent += static_cast<std::size_t>(count);
  }
}

void HttpServer::WaitForGoodbye(int connection) const {
  std::array<char, 64> buffer;
  while (!stops_) {
    pollfd waiting{connection, POLLIN, 0};
    if (::poll(&waiting, 1, 20) <= 0) continue;
    if (::recv(connection, buffer.data(), buffer.size(), 0) <= 0) return;
  }
}

}  // namespace corvanta
