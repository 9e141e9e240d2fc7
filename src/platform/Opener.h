#pragma once

#include <string>

namespace corvanta::inline platform {

// Hands a file or an address to the system's application for it.
class Opener {
 public:
  virtual ~Opener() = default;
  // False when the system has no application for it.
  [[nodiscard]] virtual bool Open(const std::string& pathOrUrl) = 0;
};

// Starts the desktop's own opener (xdg-open) and waits for its word, not for the application.
class DesktopOpener : public Opener {
 public:
  [[nodiscard]] bool Open(const std::string& pathOrUrl) override;
};

}  // namespace corvanta::inline platform
